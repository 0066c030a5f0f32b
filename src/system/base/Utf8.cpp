#include "system/base/Utf8.h"

namespace tarnwell::system {
namespace {

struct Lead {
  std::size_t length;  // of the whole sequence in bytes; 0 when the byte starts none
  std::uint32_t bits;
  std::uint32_t least;  // smaller values have a shorter form, and only that is valid
};

Lead leadOf(unsigned char byte) {
  if (byte < 0x80) {
    return {1, byte, 0};
  }
  if ((byte & 0xE0U) == 0xC0) {
    return {2, byte & 0x1FU, 0x80};
  }
  if ((byte & 0xF0U) == 0xE0) {
    return {3, byte & 0x0FU, 0x800};
  }
  if ((byte & 0xF8U) == 0xF0) {
    return {4, byte & 0x07U, 0x10000};
  }
  return {};
}

bool isScalar(std::uint32_t value) { return value < 0xD800 || (value > 0xDFFF && value <= 0x10FFFF); }

}  // namespace

std::optional<std::uint32_t> takeCodePoint(std::string_view& text) {
  if (text.empty()) {
    return std::nullopt;
  }
  const Lead lead = leadOf(static_cast<unsigned char>(text.front()));
  if (lead.length == 0 || lead.length > text.size()) {
    return std::nullopt;
  }
  std::uint32_t value = lead.bits;
  for (const char c : text.substr(1, lead.length - 1)) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0U) != 0x80) {
      return std::nullopt;
    }
    value = value << 6U | (byte & 0x3FU);
  }
  if (value < lead.least || !isScalar(value)) {
    return std::nullopt;
  }
  text.remove_prefix(lead.length);
  return value;
}

bool isUtf8(std::string_view text) {
  while (!text.empty()) {
    if (!takeCodePoint(text)) {
      return false;
    }
  }
  return true;
}

void appendCodePoint(std::string& text, std::uint32_t codePoint) {
  const auto append = [&](std::uint32_t byte) { text += static_cast<char>(byte); };
  if (codePoint < 0x80) {
    append(codePoint);
    return;
  }
  if (codePoint < 0x800) {
    append(0xC0U | codePoint >> 6U);
  } else if (codePoint < 0x10000) {
    append(0xE0U | codePoint >> 12U);
    append(0x80U | (codePoint >> 6U & 0x3FU));
  } else {
    append(0xF0U | codePoint >> 18U);
    append(0x80U | (codePoint >> 12U & 0x3FU));
    append(0x80U | (codePoint >> 6U & 0x3FU));
  }
  append(0x80U | (codePoint & 0x3FU));
}

}  // namespace tarnwell::system
