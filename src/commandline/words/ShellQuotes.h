#pragma once

#include <string>
#include <string_view>

namespace tarnwell::commandline {

/// One word of a shell's command line, whatever is in it but NUL.
std::string inSingleQuotes(std::string_view text);

}  // namespace tarnwell::commandline
