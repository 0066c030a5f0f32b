#pragma once

#include <string>
#include <string_view>

namespace tarnwell::standin {

/// Asks every process of a name that plays in the system of `root` to end, and sees them end. False when there was
/// none.
///
/// One call after the other, also those of different processes: each meets processes that no call before it has met. A
/// Dock that was just ended is started again by its supervisor, so that the next call waits for it, two seconds at
/// most.
bool killAll(std::string_view name, const std::string& root);

}  // namespace tarnwell::standin
