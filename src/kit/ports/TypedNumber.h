#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace tarnwell::kit {

/// The characters and group sizes with which a locale writes numbers; English ones unless set.
struct NumberSymbols {
  char32_t decimal = U'.';
  char32_t grouping = U',';
  /// Digits in the group next to the decimal separator; 0 where the locale does not group.
  int firstGroup = 3;
  /// Digits in each group before that one. Hindi writes 12,34,567: 3 and then 2.
  int furtherGroups = 3;
  /// The zero of each set of ten digits that may be typed; nine more digits follow each of them.
  std::vector<char32_t> zeros = {U'0'};
};

/// What a user typed, read strictly: blanks around, a minus, digits with whole groups or with none, and a fraction.
/// One side of the decimal separator may be empty, not both. Nothing for everything else: no plus, no exponent, no
/// infinity, and no group that the locale would not write, so that a German "0.456" is an error and not 456.
std::optional<double> typedNumber(std::u32string_view text, const NumberSymbols& symbols);

}  // namespace tarnwell::kit
