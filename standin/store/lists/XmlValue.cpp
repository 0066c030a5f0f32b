#include "standin/store/lists/XmlValue.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <system_error>

#include "standin/store/Timestamp.h"

namespace tarnwell::standin {
namespace {

std::string_view trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(xmlBlanks), text.size()));
  return text.substr(0, text.find_last_not_of(xmlBlanks) + 1);
}

/// Takes the sign off; true for a minus.
bool takeSign(std::string_view& text) {
  const bool isNegative = text.starts_with('-');
  text.remove_prefix(isNegative || text.starts_with('+') ? 1 : 0);
  return isNegative;
}

template <class Number, class... Form>
bool isNumber(std::string_view text, Number& number, Form... form) {
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number, form...);
  return error == std::errc() && rest == end;
}

int digitOf(char c) {
  constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  const std::size_t digit = digits.find(c);
  return digit == std::string_view::npos ? -1 : static_cast<int>(digit);
}

PropertyList truth(const std::string& text, bool value) {
  return PropertyList(text.empty() ? plist_new_bool(value ? 1 : 0) : nullptr);
}

}  // namespace

PropertyList xmlString(const std::string& text) { return PropertyList(plist_new_string(text.c_str())); }

PropertyList xmlInteger(const std::string& text) {
  constexpr std::uint64_t signedLimit = std::uint64_t{1} << 63U;
  std::string_view digits = trimmed(text);
  const bool isNegative = takeSign(digits);
  const bool isHexadecimal = digits.starts_with("0x") || digits.starts_with("0X");
  digits.remove_prefix(isHexadecimal ? 2 : 0);
  std::uint64_t value = 0;
  if (!isNumber(digits, value, isHexadecimal ? 16 : 10) || (isNegative && value > signedLimit)) {
    return nullptr;
  }
  if (!isNegative && value >= signedLimit) {
    return newLargeInteger(value);
  }
  return PropertyList(plist_new_uint(isNegative ? 0 - value : value));
}

PropertyList xmlReal(const std::string& text) {
  std::string_view digits = trimmed(text);
  const bool isNegative = takeSign(digits);
  double value = 0;
  if (digits.starts_with('-') || !isNumber(digits, value)) {
    return nullptr;
  }
  return PropertyList(plist_new_real(isNegative ? -value : value));
}

PropertyList xmlDate(const std::string& text) {
  constexpr std::string_view longest = "0000-00-00T00:00:00Z";
  const std::string date(trimmed(text));
  const std::size_t missing = longest.size() - std::min(date.size(), longest.size());
  // The year has one digit at least.
  const std::string_view form = longest.substr(std::min<std::size_t>(missing, 3));
  const bool isForm =
      std::ranges::equal(date, form, [](char c, char each) { return each == '0' ? c >= '0' && c <= '9' : c == each; });
  const auto seconds = isForm ? secondsIn(date, "%Y-%m-%dT%H:%M:%SZ") : std::nullopt;
  return seconds ? newDate(static_cast<double>(*seconds - dateReference)) : nullptr;
}

PropertyList xmlData(const std::string& text) {
  std::string digits = text;
  std::erase_if(digits, [](char c) { return xmlBlanks.find(c) != std::string_view::npos; });
  const std::size_t length = digits.find_last_not_of('=') + 1;
  if (digits.size() % 4 != 0 || digits.size() - length > 2) {
    return nullptr;
  }
  std::string bytes;
  std::uint32_t bits = 0;
  for (std::size_t i = 0; i < length; ++i) {
    const int digit = digitOf(digits[i]);
    if (digit < 0) {
      return nullptr;
    }
    bits = bits << 6U | static_cast<std::uint32_t>(digit);
    // Each digit but the first of four completes a byte.
    if (i % 4 != 0) {
      bytes += static_cast<char>(bits >> (6 - 2 * (i % 4)) & 0xFFU);
    }
  }
  return PropertyList(plist_new_data(bytes.data(), bytes.size()));
}

PropertyList xmlTrue(const std::string& text) { return truth(text, true); }

PropertyList xmlFalse(const std::string& text) { return truth(text, false); }

}  // namespace tarnwell::standin
