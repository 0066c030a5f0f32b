#include "updater/text/PlainLine.h"

#include <algorithm>
#include <array>

namespace tarnwell::updater {
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
    Range{0x200b, 0x200f}, Range{0x202a, 0x202e}, Range{0x2060, 0x206f}, Range{0xfdd0, 0xfdef},  Range{0xfe00, 0xfe0f},
    Range{0xfeff, 0xfeff}, Range{0xfff0, 0xfffb}, Range{0xfffe, 0xffff}, Range{0xe0000, 0xe0fff}};

template <class Ranges>
bool isIn(const Ranges& ranges, char32_t letter) {
  return std::any_of(ranges.begin(), ranges.end(),
                     [letter](const Range& range) { return letter >= range.first && letter <= range.last; });
}

/// One character and its bytes; no bytes for what is no character.
struct Letter {
  char32_t code = 0;
  std::string_view bytes = {};
};

/// How many bytes a character has that starts with this one; 0 for a byte that starts none.
std::size_t lengthBehind(unsigned char first) {
  if (first < 0xc2 || first > 0xf4) {
    return first < 0x80 ? 1 : 0;
  }
  if (first < 0xe0) {
    return 2;
  }
  return first < 0xf0 ? 3 : 4;
}

char32_t codeOf(std::string_view bytes) {
  if (bytes.size() == 1) {
    return static_cast<unsigned char>(bytes.front());
  }
  char32_t code = static_cast<unsigned char>(bytes.front()) & (0x7fU >> bytes.size());
  for (const char c : bytes.substr(1)) {
    code = code << 6U | (static_cast<unsigned char>(c) & 0x3fU);
  }
  return code;
}

/// Whether there is no shorter way to write it, and it is a character at all.
bool isProper(char32_t code, std::size_t length) {
  constexpr std::array<char32_t, 5> least = {0, 0, 0x80, 0x800, 0x10000};
  return code >= least.at(length) && code <= 0x10ffff && (code < 0xd800 || code > 0xdfff);
}

Letter takeLetter(std::string_view& text) {
  const std::size_t length = lengthBehind(static_cast<unsigned char>(text.front()));
  const std::string_view bytes = text.substr(0, std::max<std::size_t>(length, 1));
  const auto goesOn = [](char c) { return (static_cast<unsigned char>(c) & 0xc0U) == 0x80; };
  const bool isWhole = length != 0 && bytes.size() == length && std::all_of(bytes.begin() + 1, bytes.end(), goesOn);
  if (!isWhole || !isProper(codeOf(bytes), length)) {
    text.remove_prefix(1);
    return {};
  }
  text.remove_prefix(length);
  return {codeOf(bytes), bytes};
}

}  // namespace

std::string plainLine(std::string_view text, std::size_t most) {
  std::string line;
  std::size_t count = 0;
  bool isAfterBlank = false;
  while (!text.empty()) {
    const Letter letter = takeLetter(text);
    if (isIn(blankRanges, letter.code)) {
      isAfterBlank = !line.empty();
    } else if (!letter.bytes.empty() && !isIn(unseenRanges, letter.code)) {
      count += isAfterBlank ? 2 : 1;
      if (count > most) {
        return line + "…";
      }
      line += isAfterBlank ? " " : "";
      line += letter.bytes;
      isAfterBlank = false;
    }
  }
  return line;
}

}  // namespace tarnwell::updater
