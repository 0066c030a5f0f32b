#pragma once

#include "kit/ports/NumberFormat.h"

namespace tarnwell::host_macos {

/// Numbers as the user's region writes them.
class LocaleNumberFormat final : public kit::NumberFormat {
 public:
  std::string text(double value, int mostFractionDigits) const override;
  std::optional<double> value(std::string_view text) const override;
};

}  // namespace tarnwell::host_macos
