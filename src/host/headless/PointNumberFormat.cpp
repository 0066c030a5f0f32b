#include "host/headless/PointNumberFormat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <locale>
#include <sstream>

namespace tarnwell::host_headless {
namespace {

constexpr std::array<std::string_view, 4> blanks = {" ", "\t", "\u00A0", "\u202F"};
constexpr std::string_view minusSign = "\u2212";

/// The digits before and behind the point.
struct Digits {
  std::string whole = {};
  std::string fraction = {};
};

bool areDigits(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

/// The shortest digits that give the number again: what is rounded is what a person sees of it.
Digits shortestDigits(double magnitude) {
  // The widest double has 309 digits before the point, the narrowest some 340 behind it.
  std::array<char, 700> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, std::chars_format::fixed);
  const std::string plain(buffer.data(), end.ptr);
  const std::size_t point = std::min(plain.find('.'), plain.size());
  return {.whole = plain.substr(0, point), .fraction = plain.substr(std::min(point + 1, plain.size()))};
}

void increment(std::string& digits) {
  for (std::size_t i = digits.size(); i-- > 0;) {
    if (digits[i] != '9') {
      ++digits[i];
      return;
    }
    digits[i] = '0';
  }
  digits.insert(digits.begin(), '1');
}

// The shortest digits end in none that is zero.
bool roundsUp(std::string_view kept, std::string_view dropped) {
  return dropped > "5" || (dropped == "5" && (kept.back() - '0') % 2 != 0);
}

Digits rounded(const Digits& digits, std::size_t fractionDigits) {
  const std::size_t count = std::min(fractionDigits, digits.fraction.size());
  std::string kept = digits.whole + digits.fraction.substr(0, count);
  const std::size_t length = kept.size();
  if (roundsUp(kept, std::string_view(digits.fraction).substr(count))) {
    increment(kept);
  }
  const std::size_t point = digits.whole.size() + kept.size() - length;
  Digits result{.whole = kept.substr(0, point), .fraction = kept.substr(point)};
  result.fraction.erase(result.fraction.find_last_not_of('0') + 1);
  return result;
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

std::string_view withoutBlanks(std::string_view text) {
  for (std::size_t before = text.size() + 1; text.size() != before;) {
    before = text.size();
    for (const std::string_view blank : blanks) {
      if (text.starts_with(blank)) {
        text.remove_prefix(blank.size());
      }
      if (text.ends_with(blank)) {
        text.remove_suffix(blank.size());
      }
    }
  }
  return text;
}

bool takeMinus(std::string_view& text) {
  for (const std::string_view minus : {std::string_view("-"), minusSign}) {
    if (text.starts_with(minus)) {
      text.remove_prefix(minus.size());
      return true;
    }
  }
  return false;
}

/// The digits of `text` without its grouping marks, or nothing where one stands at another place than a locale's.
std::optional<std::string> ungrouped(std::string_view text, char mark) {
  std::string digits(text);
  std::erase(digits, mark);
  const bool groups = digits.size() != text.size();
  if (!areDigits(digits) || (groups && (digits.starts_with('0') || grouped(digits, mark) != text))) {
    return std::nullopt;
  }
  return digits;
}

}  // namespace

std::string PointNumberFormat::text(double value, int mostFractionDigits) const {
  if (std::isnan(value)) {
    return "NaN";
  }
  const std::string sign = std::signbit(value) ? "-" : "";
  if (std::isinf(value)) {
    return sign + "∞";
  }
  const auto fractionDigits = static_cast<std::size_t>(std::max(0, mostFractionDigits));
  const Digits digits = rounded(shortestDigits(std::abs(value)), fractionDigits);
  return sign + grouped(digits.whole, groupingMark_) + (digits.fraction.empty() ? "" : decimalMark_ + digits.fraction);
}

std::optional<double> PointNumberFormat::value(std::string_view text) const {
  text = withoutBlanks(text);
  const bool isNegative = takeMinus(text);
  const std::size_t point = std::min(text.find(decimalMark_), text.size());
  const auto whole = ungrouped(text.substr(0, point), groupingMark_);
  const std::string_view fraction = text.substr(std::min(point + 1, text.size()));
  if (!whole || !areDigits(fraction) || (whole->empty() && fraction.empty())) {
    return std::nullopt;
  }
  // Not every system's library has from_chars for these.
  std::istringstream plain(*whole + "." + std::string(fraction));
  plain.imbue(std::locale::classic());
  double magnitude = 0;
  if (!(plain >> magnitude)) {
    return std::nullopt;
  }
  return isNegative ? -magnitude : magnitude;
}

}  // namespace tarnwell::host_headless
