#pragma once

#include <compare>
#include <string_view>

namespace tarnwell::release {

/// Whether a text is a version such as people give: at most 100 letters, digits and characters of ".-+~_", a digit
/// first. What is none of that can be compared, but means nothing.
bool isVersion(std::string_view text);

/// Whether it is nothing but numbers with full stops between them, "6.1.0".
bool isNumericVersion(std::string_view text);

/// Which of two versions is the newer one; any two texts can be compared, and the order is total.
///
/// Components stand between full stops and are compared one after another: digits as numbers of any size, and what is
/// missing or empty as 0, so that "1.0" and "1" are equivalent. A component is split further where digits meet letters
/// ("0b2" is 0, b, 2), and other characters only part one piece from the next. A word is less than any number: "1.0b2"
/// comes before "1.0", and a version that starts with a word before all that start with a number. Words are ordered by
/// their bytes, A like a.
std::weak_ordering compareVersions(std::string_view left, std::string_view right);

}  // namespace tarnwell::release
