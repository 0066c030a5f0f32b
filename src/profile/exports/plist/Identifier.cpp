#include "profile/exports/plist/Identifier.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace tarnwell::profile {
namespace {

constexpr std::size_t longest = 255;  // Characters.

bool isPartCharacter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
         (character >= '0' && character <= '9') || character == '-';
}

/// FNV-1a of 64 bits, whose last multiplications are not enough to reach the high bits of a short text.
std::uint64_t hash(std::uint64_t basis, std::string_view text) {
  constexpr std::uint64_t prime = 0x100000001b3;
  std::uint64_t result = basis;
  for (const char character : text) {
    result = (result ^ static_cast<unsigned char>(character)) * prime;
  }
  result = (result ^ (result >> 33)) * 0xff51afd7ed558ccd;
  result = (result ^ (result >> 33)) * 0xc4ceb9fe1a85ec53;
  return result ^ (result >> 33);
}

std::string hexadecimal(std::uint64_t number) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text;
  for (int shift = 60; shift >= 0; shift -= 4) {
    text += digits[(number >> shift) & 15];
  }
  return text;
}

}  // namespace

bool isIdentifier(std::string_view text) {
  const bool hasParts = text.find('.') != std::string_view::npos && text.find("..") == std::string_view::npos &&
                        !text.starts_with('.') && !text.ends_with('.');
  return hasParts && text.size() <= longest &&
         std::ranges::all_of(text, [](char each) { return each == '.' || isPartCharacter(each); });
}

std::string uuidOf(std::string_view name) {
  // Two bases of one's choice give two halves.
  const std::uint64_t high = hash(0xcbf29ce484222325, name);
  const std::uint64_t low = hash(0x84222325cbf29ce4, name);
  // The version and the variant have places of their own.
  const std::string text =
      hexadecimal((high & ~0xf000ULL) | 0x8000) + hexadecimal((low & ~(3ULL << 62)) | (1ULL << 63));
  return text.substr(0, 8) + '-' + text.substr(8, 4) + '-' + text.substr(12, 4) + '-' + text.substr(16, 4) + '-' +
         text.substr(20);
}

}  // namespace tarnwell::profile
