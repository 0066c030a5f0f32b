#pragma once

#include <memory>

#include "kit/ports/NumberFormat.h"

namespace tarnwell::host_linux {

/// Numbers in any locale that ICU knows.
///
///     const auto format = IcuNumberFormat("de_DE");
///     format.text(1234.5, 2);  // "1.234,5"
///     format.value("0,5");     // 0.5
class IcuNumberFormat : public kit::NumberFormat {
 public:
  /// `locale` is an ICU locale name. A locale that ICU does not know writes plain numbers without groups.
  explicit IcuNumberFormat(const std::string& locale);
  ~IcuNumberFormat() override;

  /// A negative digit count is none. NaN and the infinities have texts too, which value() refuses.
  std::string text(double value, int mostFractionDigits) const override;

  /// UTF-8. Digits may be ASCII or the locale's own.
  std::optional<double> value(std::string_view text) const override;

 private:
  struct Locale;
  std::unique_ptr<Locale> locale_;
};

}  // namespace tarnwell::host_linux
