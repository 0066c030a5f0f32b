#pragma once

#include "kit/turn/Action.h"
#include "kit/turn/Subscription.h"

namespace tarnwell::host_macos {

/// Runs `readable` from the event loop whenever `descriptor`, a kernel queue too, can be read, until the subscription
/// ends. The descriptor stays the caller's.
[[nodiscard]] kit::Subscription watchDescriptor(int descriptor, kit::Action readable);

}  // namespace tarnwell::host_macos
