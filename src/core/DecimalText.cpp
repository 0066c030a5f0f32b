#include "core/DecimalText.h"

#include <array>
#include <charconv>
#include <cmath>

#include "core/ValueText.h"

namespace tarnwell::core {
namespace {

bool standsInFixedNotation(double value) {
  const double magnitude = std::abs(value);
  return magnitude == 0 || (magnitude >= 1e-4 && magnitude < 1e16);
}

template <class Number>
std::string textIn(std::chars_format notation, Number value) {
  if (std::isnan(value)) {
    return "nan";
  }
  if (std::isinf(value)) {
    return value < 0 ? "-inf" : "inf";
  }
  // The smallest double has 323 zeros behind its point and in front of its digits.
  std::array<char, 352> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, notation).ptr;
  std::string text(buffer.data(), end);
  if (notation == std::chars_format::fixed && text.find('.') == std::string::npos) {
    text += ".0";
  }
  return text;
}

}  // namespace

std::string decimalText(double value) {
  return textIn(standsInFixedNotation(value) ? std::chars_format::fixed : std::chars_format::scientific, value);
}

std::string plainDecimalText(double value) { return textIn(std::chars_format::fixed, value); }

std::string printedDecimalText(float value) {
  constexpr int digits = 7;
  std::array<char, 32> buffer{};
  return {buffer.data(),
          std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, digits).ptr};
}

float roundedDecimal(double value) {
  constexpr double millionths = 1e6;
  // The sum makes 0 of what is -0 after rounding.
  const auto number = static_cast<float>(std::round(value * millionths) / millionths + 0.0);
  return static_cast<float>(parseFloat(printedDecimalText(number)));
}

std::string roundedDecimalText(float value) { return textIn(std::chars_format::fixed, value); }

}  // namespace tarnwell::core
