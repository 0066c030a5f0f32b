#pragma once

#include <string_view>

namespace tarnwell::diagnostics {

/// Prints `line` and a line feed on standard output at once, in a single write, so that lines of this process and of
/// its children never mix. A standard output that is closed or broken swallows the line: nobody is listening.
void printLine(std::string_view line);

/// The same on standard error.
void printErrorLine(std::string_view line);

}  // namespace tarnwell::diagnostics
