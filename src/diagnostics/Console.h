#pragma once

#include <string_view>

namespace tarnwell::diagnostics {

/// Writes to standard output as it is. False, with errno set, when not every byte was taken.
bool print(std::string_view text);

/// The same on standard error, where nothing can be said about a failure.
void printError(std::string_view text);

/// Prints `line` and a line feed on standard output at once, in a single write, so that lines of this process and of
/// its children never mix. A standard output that is closed or broken swallows the line.
void printLine(std::string_view line);

/// The same on standard error.
void printErrorLine(std::string_view line);

/// The same with the program's name before it: what went wrong, in a line that says who speaks.
void reportError(std::string_view message);

}  // namespace tarnwell::diagnostics
