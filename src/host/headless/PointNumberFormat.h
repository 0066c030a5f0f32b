#pragma once

#include "kit/ports/NumberFormat.h"

namespace tarnwell::host_headless {

/// A locale of two marks, for a platform without locales: "." and "," as in English, or the other way round as in
/// German.
class PointNumberFormat final : public kit::NumberFormat {
 public:
  explicit PointNumberFormat(char decimalMark = '.', char groupingMark = ',')
      : decimalMark_(decimalMark), groupingMark_(groupingMark) {}

  std::string text(double value, int mostFractionDigits) const override;
  std::optional<double> value(std::string_view text) const override;

 private:
  char decimalMark_;
  char groupingMark_;
};

}  // namespace tarnwell::host_headless
