#pragma once

#include <functional>

#include "kit/turn/Action.h"
#include "kit/turn/Subscription.h"

namespace tarnwell::kit {
class Application;
}

namespace tarnwell::updateclient {

/// Runs `readable` from the event loop whenever a descriptor can be read, until the subscription ends, which it may do
/// itself.
using Watch = std::function<kit::Subscription(int descriptor, kit::Action readable)>;

/// By the application's platform: what a descriptor announces is an event of the application, which has to outlive it.
Watch watchOf(kit::Application& application);

}  // namespace tarnwell::updateclient
