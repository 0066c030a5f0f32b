#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tarnwell::release {

/// A text that is nothing but digits, as a number; nothing for any other text, and for one that is too large.
std::optional<std::uint64_t> numberIn(std::string_view text);

}  // namespace tarnwell::release
