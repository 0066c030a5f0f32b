#include "standin/store/lists/OldStyleText.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>

#include "standin/store/lists/ValueText.h"
#include "system/base/Utf8.h"

namespace tarnwell::standin {
namespace {

std::string indent(std::size_t level) {
  std::string blanks;
  blanks.resize(4 * level, ' ');
  return blanks;
}

bool isPlain(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '.' || c == '/';
}

std::string formatted(const char* format, std::uint32_t value) {
  std::array<char, 16> buffer{};
  const int length = std::snprintf(buffer.data(), buffer.size(), format, value);
  return {buffer.data(), static_cast<std::size_t>(length)};
}

std::string escaped(std::uint32_t codePoint) {
  if (codePoint == '\n') {
    return "\\n";
  }
  if (codePoint == '"' || codePoint == '\\') {
    return {'\\', static_cast<char>(codePoint)};
  }
  if (codePoint < 0x20 || codePoint == 0x7F) {
    return formatted("\\%03o", codePoint);
  }
  if (codePoint < 0x80) {
    return {static_cast<char>(codePoint)};
  }
  if (codePoint < 0x10000) {
    return formatted("\\U%04x", codePoint);
  }
  const std::uint32_t offset = codePoint - 0x10000;
  return formatted("\\U%04x", 0xD800 + (offset >> 10U)) + formatted("\\U%04x", 0xDC00 + (offset & 0x3FFU));
}

std::string dictionaryText(plist_t node, std::size_t level) {
  std::string text = indent(level) + "{\n";
  for (const auto& [key, value] : entriesOf(node)) {
    text += indent(level + 1) + quotedText(key) + " = " + oldStyleText(value, level + 1) + ";\n";
  }
  return text + indent(level) + "}";
}

std::string arrayText(plist_t node, std::size_t level) {
  std::string text;
  for (plist_t item : itemsOf(node)) {
    text += (text.empty() ? "" : ",\n") + indent(level + 1) + oldStyleText(item, level + 1);
  }
  return indent(level) + "(\n" + text + (text.empty() ? "" : "\n") + indent(level) + ")";
}

}  // namespace

std::string quotedText(std::string_view text) {
  if (!text.empty() && std::all_of(text.begin(), text.end(), isPlain)) {
    return std::string(text);
  }
  std::string quoted = "\"";
  while (!text.empty()) {
    if (const auto codePoint = system::takeCodePoint(text)) {
      quoted += escaped(*codePoint);
    } else {
      quoted += formatted("\\%03o", static_cast<unsigned char>(text.front()));
      text.remove_prefix(1);
    }
  }
  return quoted + "\"";
}

std::string oldStyleText(plist_t node, std::size_t level) {
  switch (plist_get_node_type(node)) {
    case PLIST_DICT:
      return dictionaryText(node, level);
    case PLIST_ARRAY:
      return arrayText(node, level);
    case PLIST_DATA:
      return valueText(node);
    default:
      return quotedText(valueText(node));
  }
}

}  // namespace tarnwell::standin
