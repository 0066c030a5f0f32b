#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarnwell::system {

/// Takes the first code point off `text`. Nothing when the bytes there are no UTF-8; `text` is then unchanged.
std::optional<std::uint32_t> takeCodePoint(std::string_view& text);

/// Whether the bytes are well-formed UTF-8: no stray or missing continuation bytes, no overlong forms, no surrogates,
/// nothing above U+10FFFF.
bool isUtf8(std::string_view text);

/// Appends a code point that is no half of a surrogate pair.
void appendCodePoint(std::string& text, std::uint32_t codePoint);

}  // namespace tarnwell::system
