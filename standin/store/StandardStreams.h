#pragma once

#include <string_view>

namespace tarnwell::standin {

/// Writes to standard output. False when not every byte was taken.
bool printOut(std::string_view text);

/// Writes to standard error; nothing can be said about a failure there.
void printError(std::string_view text);

}  // namespace tarnwell::standin
