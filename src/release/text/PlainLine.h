#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarnwell::release {

// What strangers wrote, as UTF-8 that says what it seems to say: invisible characters, controls, those that turn the
// direction of writing and bytes that are no text are left out.

/// With one space for blanks and line ends in a row.
std::string visibleText(std::string_view text);

/// With its lines and blanks as they are, four for a tab.
std::string visibleLines(std::string_view text);

/// As one line: visible text without blanks around it. Of more than `most` characters the rest gives way to an
/// ellipsis.
std::string plainLine(std::string_view text, std::size_t most);

}  // namespace tarnwell::release
