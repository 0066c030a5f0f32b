#include "kit/ports/TypedNumber.h"

#include <locale>
#include <sstream>
#include <string>
#include <vector>

namespace tarnwell::kit {
namespace {

constexpr std::u32string_view spaces = U" \t\u00A0\u2009\u202F";
constexpr std::u32string_view apostrophes = U"'\u2019";
constexpr std::u32string_view minuses = U"-\u2212";
// Right-to-left locales put these around the sign.
constexpr std::u32string_view directionMarks = U"\u061C\u200E\u200F";

bool isIn(std::u32string_view set, char32_t character) { return set.find(character) != std::u32string_view::npos; }

std::u32string_view withoutSpaces(std::u32string_view text) {
  const auto first = text.find_first_not_of(spaces);
  if (first == std::u32string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(spaces) - first + 1);
}

void skipDirectionMarks(std::u32string_view& text) {
  while (!text.empty() && isIn(directionMarks, text.front())) {
    text.remove_prefix(1);
  }
}

bool takeMinus(std::u32string_view& text) {
  skipDirectionMarks(text);
  if (text.empty() || !isIn(minuses, text.front())) {
    return false;
  }
  text.remove_prefix(1);
  skipDirectionMarks(text);
  return true;
}

// A keyboard has one blank and one apostrophe; the locales use their typographic relatives.
bool isGrouping(char32_t character, const NumberSymbols& symbols) {
  if (symbols.firstGroup == 0) {
    return false;
  }
  if (isIn(spaces, symbols.grouping)) {
    return isIn(spaces, character);
  }
  if (isIn(apostrophes, symbols.grouping)) {
    return isIn(apostrophes, character);
  }
  return character == symbols.grouping;
}

std::optional<char> plainDigit(char32_t character, const NumberSymbols& symbols) {
  for (const char32_t zero : symbols.zeros) {
    if (character >= zero && character - zero < 10) {
      return static_cast<char>('0' + (character - zero));
    }
  }
  return std::nullopt;
}

std::optional<std::string> plainDigits(std::u32string_view text, const NumberSymbols& symbols) {
  std::string digits;
  for (const char32_t character : text) {
    const auto digit = plainDigit(character, symbols);
    if (!digit) {
      return std::nullopt;
    }
    digits += *digit;
  }
  return digits;
}

std::vector<std::u32string_view> groupsOf(std::u32string_view text, const NumberSymbols& symbols) {
  std::vector<std::u32string_view> groups;
  std::size_t start = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (!isGrouping(text[at], symbols)) {
      continue;
    }
    groups.push_back(text.substr(start, at - start));
    start = at + 1;
  }
  groups.push_back(text.substr(start));
  return groups;
}

bool areWellFormed(const std::vector<std::u32string_view>& groups, const NumberSymbols& symbols) {
  if (groups.size() == 1) {
    return true;
  }
  const auto first = static_cast<std::size_t>(symbols.firstGroup);
  const auto further = static_cast<std::size_t>(symbols.furtherGroups);
  if (groups.back().size() != first) {
    return false;
  }
  for (std::size_t index = 1; index + 1 < groups.size(); ++index) {
    if (groups[index].size() != further) {
      return false;
    }
  }
  if (groups.front().empty() || groups.front().size() > further) {
    return false;
  }
  return plainDigit(groups.front().front(), symbols) != '0';
}

std::optional<std::string> wholePart(std::u32string_view text, const NumberSymbols& symbols) {
  const auto groups = groupsOf(text, symbols);
  if (!areWellFormed(groups, symbols)) {
    return std::nullopt;
  }
  std::string digits;
  for (const auto group : groups) {
    const auto part = plainDigits(group, symbols);
    if (!part) {
      return std::nullopt;
    }
    digits += *part;
  }
  return digits;
}

// Too large or too small for a double counts as no number.
std::optional<double> plainNumber(const std::string& text) {
  // Not every system's library has from_chars for these.
  std::istringstream plain(text);
  plain.imbue(std::locale::classic());
  double number = 0;
  const bool isThere = static_cast<bool>(plain >> number);
  const bool vanished = number == 0 && text.find_first_of("123456789") != std::string::npos;
  return isThere && !vanished ? std::optional(number) : std::nullopt;
}

}  // namespace

std::optional<double> typedNumber(std::u32string_view text, const NumberSymbols& symbols) {
  std::u32string_view rest = withoutSpaces(text);
  const std::string sign = takeMinus(rest) ? "-" : "";
  const auto separator = rest.find(symbols.decimal);
  const bool hasSeparator = separator != std::u32string_view::npos;
  const auto whole = wholePart(rest.substr(0, separator), symbols);
  const auto fraction = plainDigits(hasSeparator ? rest.substr(separator + 1) : std::u32string_view(), symbols);
  if (!whole || !fraction || (whole->empty() && fraction->empty())) {
    return std::nullopt;
  }
  return plainNumber(sign + (whole->empty() ? "0" : *whole) + "." + *fraction);
}

}  // namespace tarnwell::kit
