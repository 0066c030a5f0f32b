#include "release/text/PlainLine.h"

#include <algorithm>
#include <array>

#include "system/base/Utf8.h"

namespace tarnwell::release {
namespace {

struct Range {
  char32_t first = 0;
  char32_t last = 0;
};

constexpr std::array blankRanges = {
    Range{0x09, 0x0d},     Range{0x20, 0x20},     Range{0x85, 0x85},     Range{0xa0, 0xa0},     Range{0x1680, 0x1680},
    Range{0x2000, 0x200a}, Range{0x2028, 0x2029}, Range{0x202f, 0x202f}, Range{0x205f, 0x205f}, Range{0x3000, 0x3000}};

// In the order of the code points: controls, what has no width, what turns the direction, what is for programs only.
constexpr std::array unseenRanges = {
    Range{0x00, 0x1f},     Range{0x7f, 0x9f},     Range{0xad, 0xad},     Range{0x061c, 0x061c},  Range{0x180e, 0x180e},
    Range{0x200b, 0x200f}, Range{0x2028, 0x202e}, Range{0x2060, 0x206f}, Range{0xfdd0, 0xfdef},  Range{0xfe00, 0xfe0f},
    Range{0xfeff, 0xfeff}, Range{0xfff0, 0xfffc}, Range{0xfffe, 0xffff}, Range{0xe0000, 0xe0fff}};

template <class Ranges>
bool isIn(const Ranges& ranges, char32_t letter) {
  return std::any_of(ranges.begin(), ranges.end(),
                     [letter](const Range& range) { return letter >= range.first && letter <= range.last; });
}

/// Hands each character that is text to `taken`, with its bytes.
template <class Taken>
void forEachCharacter(std::string_view text, const Taken& taken) {
  while (!text.empty()) {
    const std::string_view before = text;
    const auto character = system::takeCodePoint(text);
    if (character) {
      taken(char32_t{*character}, before.substr(0, before.size() - text.size()));
    } else {
      text.remove_prefix(1);
    }
  }
}

}  // namespace

std::string visibleText(std::string_view text) {
  std::string visible;
  forEachCharacter(text, [&visible](char32_t character, std::string_view bytes) {
    if (isIn(blankRanges, character)) {
      visible += visible.ends_with(' ') ? "" : " ";
    } else if (!isIn(unseenRanges, character)) {
      visible += bytes;
    }
  });
  return visible;
}

std::string visibleLines(std::string_view text) {
  std::string visible;
  forEachCharacter(text, [&visible](char32_t character, std::string_view bytes) {
    if (character == '\n' || !isIn(unseenRanges, character)) {
      visible += bytes;
    } else if (character == '\t') {
      visible += "    ";
    }
  });
  return visible;
}

std::string plainLine(std::string_view text, std::size_t most) {
  std::string visible = visibleText(text);
  visible.erase(visible.find_last_not_of(' ') + 1);
  visible.erase(0, visible.find_first_not_of(' '));
  std::string line;
  std::size_t count = 0;
  forEachCharacter(visible, [&](char32_t, std::string_view bytes) { line += ++count <= most ? bytes : ""; });
  line.erase(line.find_last_not_of(' ') + 1);
  return line + (count > most ? "…" : "");
}

}  // namespace tarnwell::release
