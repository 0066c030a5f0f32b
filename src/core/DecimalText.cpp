#include "core/DecimalText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace tarnwell::core {
namespace {

bool standsInFixedNotation(double value) {
  const double magnitude = std::abs(value);
  return magnitude == 0 || (magnitude >= 1e-4 && magnitude < 1e16);
}

}  // namespace

std::string decimalText(double value) {
  if (std::isnan(value)) {
    return "nan";
  }
  if (std::isinf(value)) {
    return value < 0 ? "-inf" : "inf";
  }
  const bool isFixed = standsInFixedNotation(value);
  // Seventeen digits, a sign, a point and an exponent, or four leading zeros, always fit.
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                 isFixed ? std::chars_format::fixed : std::chars_format::scientific)
                       .ptr;
  std::string text(buffer.data(), end);
  if (isFixed && text.find('.') == std::string::npos) {
    text += ".0";
  }
  return text;
}

}  // namespace tarnwell::core
