#include "profile/values/Name.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "system/base/Utf8.h"

namespace tarnwell::profile {
namespace {

constexpr std::size_t mostCharacters = 60;
constexpr std::uint32_t replacement = 0xFFFD;

struct Range {
  std::uint32_t first;
  std::uint32_t last;
};

// Controls, marks of direction, line and paragraph ends, invisible signs, and what is no character.
constexpr std::array<Range, 9> unfit = {{{0x00, 0x1F},
                                         {0x7F, 0x9F},
                                         {0x061C, 0x061C},
                                         {0x200B, 0x200F},
                                         {0x2028, 0x202E},
                                         {0x2060, 0x206F},
                                         {0xFEFF, 0xFEFF},
                                         {0xFFF9, 0xFFFB},
                                         {0xFFFE, 0xFFFF}}};

bool isFit(std::uint32_t codePoint) {
  return std::ranges::none_of(unfit,
                              [=](const Range& range) { return codePoint >= range.first && codePoint <= range.last; });
}

}  // namespace

bool isProfileName(std::string_view text) {
  for (std::size_t count = 0; !text.empty(); ++count) {
    const auto codePoint = system::takeCodePoint(text);
    if (!codePoint || !isFit(*codePoint) || count == mostCharacters) {
      return false;
    }
  }
  return true;
}

std::string visible(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const auto codePoint = system::takeCodePoint(text);
    if (!codePoint) {
      text.remove_prefix(1);
    }
    system::appendCodePoint(result, codePoint && isFit(*codePoint) ? *codePoint : replacement);
  }
  return result;
}

std::string inQuotes(std::string_view text) {
  std::string_view rest = text;
  for (std::size_t count = 0; count < mostCharacters && !rest.empty(); ++count) {
    if (!system::takeCodePoint(rest)) {
      rest.remove_prefix(1);
    }
  }
  return '"' + visible(text.substr(0, text.size() - rest.size())) + (rest.empty() ? "\"" : "…\"");
}

std::string stringLiteral(std::string_view name) {
  std::string result = "\"";
  for (const char character : name) {
    if (character == '"' || character == '\\') {
      result += '\\';
    }
    result += character;
  }
  return result + '"';
}

}  // namespace tarnwell::profile
