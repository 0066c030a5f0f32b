#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string>

#include "standin/store/lists/OldStyleText.h"
#include "system/base/Utf8.h"

namespace tarnwell::standin {
namespace {

constexpr std::string_view whiteSpace = " \t\r\n\v\f";
constexpr std::string_view hexadecimalDigits = "0123456789abcdefABCDEF";
constexpr std::string_view octalDigits = "01234567";

bool standsUnquoted(char c) {
  constexpr std::string_view signs = "_$/:.-";
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         signs.find(c) != std::string_view::npos;
}

std::uint32_t numberIn(std::string_view digits, int base) {
  std::uint32_t value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
  return value;
}

bool isIn(std::uint32_t value, std::uint32_t first, std::uint32_t last) { return value >= first && value <= last; }

class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  PropertyList run() {
    PropertyList value = read(0);
    skipBlanks();
    return rest_.empty() ? std::move(value) : nullptr;
  }

 private:
  void skipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(whiteSpace), rest_.size())); }

  /// Takes one character off, behind blanks, if it is the next one.
  bool take(char c) {
    skipBlanks();
    const bool isNext = rest_.starts_with(c);
    rest_.remove_prefix(isNext ? 1 : 0);
    return isNext;
  }

  std::string_view takeDigits(std::string_view digits, std::size_t most) {
    const std::size_t end = std::min(rest_.find_first_not_of(digits), rest_.size());
    const std::string_view found = rest_.substr(0, std::min(end, most));
    rest_.remove_prefix(found.size());
    return found;
  }

  PropertyList read(std::size_t depth) {
    if (depth > deepestNesting) {
      return nullptr;
    }
    if (take('{')) {
      return readDictionary(depth);
    }
    if (take('(')) {
      return readArray(depth);
    }
    if (take('<')) {
      return readData();
    }
    const std::optional<std::string> text = readText();
    return PropertyList(text ? plist_new_string(text->c_str()) : nullptr);
  }

  PropertyList readDictionary(std::size_t depth) {
    PropertyList dictionary(plist_new_dict());
    while (!take('}')) {
      const std::optional<std::string> key = readText();
      if (!key || !take('=') || plist_dict_get_item(dictionary.get(), key->c_str()) != nullptr) {
        return nullptr;
      }
      PropertyList value = read(depth + 1);
      if (!value || !take(';')) {
        return nullptr;
      }
      plist_dict_set_item(dictionary.get(), key->c_str(), value.release());
    }
    return dictionary;
  }

  PropertyList readArray(std::size_t depth) {
    PropertyList array(plist_new_array());
    while (!take(')')) {
      PropertyList value = read(depth + 1);
      if (!value) {
        return nullptr;
      }
      plist_array_append_item(array.get(), value.release());
      if (!take(',') && !rest_.starts_with(')')) {
        return nullptr;
      }
    }
    return array;
  }

  PropertyList readData() {
    std::string bytes;
    while (!take('>')) {
      const std::string_view digits = takeDigits(hexadecimalDigits, 2);
      if (digits.size() != 2) {
        return nullptr;
      }
      bytes += static_cast<char>(numberIn(digits, 16));
    }
    return PropertyList(plist_new_data(bytes.data(), bytes.size()));
  }

  std::optional<std::string> readText() {
    for (const char quote : {'"', '\''}) {
      if (take(quote)) {
        return readQuoted(quote);
      }
    }
    const auto* const end = std::find_if_not(rest_.begin(), rest_.end(), standsUnquoted);
    std::string text(rest_.begin(), end);
    rest_.remove_prefix(text.size());
    return text.empty() ? std::nullopt : std::optional(std::move(text));
  }

  std::optional<std::string> readQuoted(char quote) {
    std::string text;
    while (!rest_.empty()) {
      const char c = rest_.front();
      rest_.remove_prefix(1);
      if (c == quote) {
        return text;
      }
      if (c != '\\') {
        text += c;
      } else if (const auto codePoint = readEscaped()) {
        system::appendCodePoint(text, *codePoint);
      } else {
        return std::nullopt;
      }
    }
    return std::nullopt;
  }

  /// What follows a backslash. NUL, and what depends on an older character set, are refused.
  std::optional<std::uint32_t> readEscaped() {
    if (const std::string_view digits = takeDigits(octalDigits, 3); !digits.empty()) {
      const std::uint32_t value = numberIn(digits, 8);
      return isIn(value, 1, 0x7F) ? std::optional(value) : std::nullopt;
    }
    if (rest_.starts_with('U')) {
      return readUnicode();
    }
    constexpr std::string_view names = "abfnrtv\"'\\\n";
    constexpr std::string_view meanings = "\a\b\f\n\r\t\v\"'\\\n";
    const std::size_t name = rest_.empty() ? std::string_view::npos : names.find(rest_.front());
    if (name == std::string_view::npos) {
      return std::nullopt;
    }
    rest_.remove_prefix(1);
    return static_cast<std::uint32_t>(meanings[name]);
  }

  std::optional<std::uint32_t> readUnicode() {
    const std::uint32_t unit = takeUnit();
    if (isIn(unit, 0xD800, 0xDBFF)) {
      const std::uint32_t low = rest_.starts_with("\\U") ? (rest_.remove_prefix(1), takeUnit()) : 0;
      return isIn(low, 0xDC00, 0xDFFF) ? std::optional(0x10000 + ((unit & 0x3FFU) << 10U | (low & 0x3FFU)))
                                       : std::nullopt;
    }
    return unit == 0 || isIn(unit, 0xDC00, 0xDFFF) ? std::nullopt : std::optional(unit);
  }

  /// The number behind a U; zero when there is none.
  std::uint32_t takeUnit() {
    rest_.remove_prefix(1);
    return numberIn(takeDigits(hexadecimalDigits, 4), 16);
  }

  std::string_view rest_;
};

}  // namespace

PropertyList parseOldStyleText(std::string_view text) { return Reader(text).run(); }

}  // namespace tarnwell::standin
