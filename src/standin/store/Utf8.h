#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tarnwell::standin {

/// Takes the first code point off `text`. Nothing when the bytes there are no UTF-8; `text` is then unchanged.
std::optional<std::uint32_t> takeCodePoint(std::string_view& text);

bool isUtf8(std::string_view text);

}  // namespace tarnwell::standin
