#pragma once

#include <vector>

namespace tarnwell::host_linux {

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

}  // namespace tarnwell::host_linux
