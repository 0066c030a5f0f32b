#pragma once

#include <optional>

#include "kit/events/AppleEvent.h"

namespace tarnwell::host_macos {

/// The event that the system has sent and that is being handled: nothing outside of that.
std::optional<kit::AppleEvent> currentAppleEvent();

}  // namespace tarnwell::host_macos
