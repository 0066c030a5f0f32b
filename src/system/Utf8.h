#pragma once

#include <string_view>

namespace tarnwell::system {

/// Whether the bytes are well-formed UTF-8: no stray or missing continuation bytes, no overlong forms, no surrogates,
/// nothing above U+10FFFF.
bool isUtf8(std::string_view bytes);

}  // namespace tarnwell::system
