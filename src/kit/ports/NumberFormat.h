#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarnwell::kit {

/// Numbers as the user's locale writes them.
class NumberFormat {
 public:
  virtual ~NumberFormat() = default;

  /// `value` with grouping and at most `mostFractionDigits` digits behind the separator, halves to even.
  virtual std::string text(double value, int mostFractionDigits) const = 0;

  /// What a user typed: the whole of `text`, strictly in the locale, or nothing.
  virtual std::optional<double> value(std::string_view text) const = 0;
};

}  // namespace tarnwell::kit
