#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tarnwell::updater {

/// Fills `bytes` from the one text that stands for exactly that many: with padding, without a blank, no stray bits.
/// Returns false, and leaves anything there, for every other text.
bool decodeBase64(std::string_view text, std::span<unsigned char> bytes);

std::string encodeBase64(std::span<const unsigned char> bytes);

}  // namespace tarnwell::updater
