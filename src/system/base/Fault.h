#pragma once

#include <string_view>

namespace tarnwell::system {

/// Ends the process because the system refused what it cannot do without: a fault that names `action` and the reason of
/// `error`, an errno value.
[[noreturn]] void fault(std::string_view action, int error);

}  // namespace tarnwell::system
