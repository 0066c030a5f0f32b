#include "host/headless/PointNumberFormat.h"

#include <array>
#include <charconv>
#include <cmath>

namespace tarnwell::host_headless {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

void trimZeros(std::string& fraction) {
  while (!fraction.empty() && fraction.back() == '0') {
    fraction.pop_back();
  }
}

std::string grouped(const std::string& digits, char mark) {
  std::string result;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) {
      result += mark;
    }
    result += digits[i];
  }
  return result;
}

}  // namespace

std::string PointNumberFormat::text(double value, int mostFractionDigits) const {
  if (std::isnan(value)) {
    return "NaN";
  }
  if (std::isinf(value)) {
    return value < 0 ? "-∞" : "∞";
  }
  // The widest double has 309 digits before the point.
  std::array<char, 400> buffer{};
  const auto end =
      std::to_chars(buffer.begin(), buffer.end(), std::abs(value), std::chars_format::fixed, mostFractionDigits);
  const std::string plain(buffer.begin(), end.ptr);
  const std::size_t point = plain.find('.');
  std::string fraction = point == std::string::npos ? "" : plain.substr(point + 1);
  trimZeros(fraction);
  const std::string whole = grouped(plain.substr(0, point), groupingMark_);
  return (std::signbit(value) ? "-" : "") + whole + (fraction.empty() ? "" : decimalMark_ + fraction);
}

std::optional<double> PointNumberFormat::value(std::string_view text) const {
  std::string plain;
  std::size_t sinceMark = 0;
  bool groups = false;
  bool fraction = false;
  bool digits = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (isDigit(c)) {
      plain += c;
      digits = true;
      ++sinceMark;
    } else if (c == '-' && i == 0) {
      plain += c;
    } else if (c == groupingMark_ && !fraction && digits && (groups ? sinceMark == 3 : sinceMark <= 3)) {
      groups = true;
      sinceMark = 0;
    } else if (c == decimalMark_ && !fraction && (!groups || sinceMark == 3)) {
      fraction = true;
      plain += '.';
    } else {
      return std::nullopt;
    }
  }
  if (!digits || (groups && !fraction && sinceMark != 3)) {
    return std::nullopt;
  }
  double number = 0;
  const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), number);
  return result.ec == std::errc() && result.ptr == plain.data() + plain.size() ? std::optional(number) : std::nullopt;
}

}  // namespace tarnwell::host_headless
