#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarnwell::updater {

/// What strangers wrote, as one line of UTF-8 that says what it seems to say: blanks and line ends in a row become one
/// space, and invisible characters, controls, those that turn the direction of writing and bytes that are no
/// text, are left out. Of more than `most` characters, which are counted after that, the rest gives way to an ellipsis.
std::string plainLine(std::string_view text, std::size_t most);

}  // namespace tarnwell::updater
