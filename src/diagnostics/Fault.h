#pragma once

#include <string_view>

namespace tarnwell::diagnostics {

/// Ends the process for a programming fault: one line, "tarnwell: " and `message`, on standard error, then an abort.
/// A fault is a broken promise of our own (a text that must be UTF-8, a launch that must work); errors that a caller
/// can act on are values instead.
[[noreturn]] void fault(std::string_view message);

}  // namespace tarnwell::diagnostics
