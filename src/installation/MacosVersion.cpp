#include "installation/MacosVersion.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>

#include "system/base/Utf8.h"

namespace tarnwell::installation {
namespace {

constexpr VersionNumbers oldest = {14, 0, 0};
constexpr std::size_t mostVersionDigits = 9;
constexpr std::size_t mostEchoed = 40;  // Bytes, and what is left of the last character.

bool isDigit(char character) { return character >= '0' && character <= '9'; }

bool isControl(std::uint32_t codePoint) { return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0); }

std::optional<int> number(std::string_view digits) {
  if (digits.empty() || digits.size() > mostVersionDigits || !std::all_of(digits.begin(), digits.end(), isDigit)) {
    return std::nullopt;
  }
  int value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return value;
}

std::optional<VersionNumbers> numbers(std::string_view text) {
  VersionNumbers parts = {};
  for (int& part : parts) {
    const auto end = text.find('.');
    const auto value = number(text.substr(0, end));
    if (!value) {
      return std::nullopt;
    }
    part = *value;
    if (end == std::string_view::npos) {
      return parts;
    }
    text.remove_prefix(end + 1);
  }
  return std::nullopt;
}

// The text comes from outside, so that only its beginning is said back, with a mark for what cannot be shown.
std::string echoed(std::string_view text) {
  std::string shown;
  while (!text.empty() && shown.size() < mostEchoed) {
    const std::string_view before = text;
    const auto codePoint = system::takeCodePoint(text);
    text.remove_prefix(codePoint ? 0 : 1);
    shown += codePoint && !isControl(*codePoint) ? before.substr(0, before.size() - text.size()) : "?";
  }
  return '"' + shown + (text.empty() ? "" : "…") + '"';
}

}  // namespace

system::Result<VersionNumbers> parseMacosVersion(const std::string& source, std::string_view text) {
  const std::string beginning = source + " is " + echoed(text) + ": ";
  const auto version = numbers(text);
  if (!version) {
    return system::Failure{beginning + "a version is one to three numbers with points between, such as 14.5"};
  }
  if (*version < oldest) {
    return system::Failure{beginning + "the oldest supported version is 14"};
  }
  return *version;
}

}  // namespace tarnwell::installation
