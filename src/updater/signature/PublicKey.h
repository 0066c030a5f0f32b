#pragma once

#include <array>
#include <string_view>

#include "system/base/Result.h"

namespace tarnwell::updater {

/// Whose signatures count.
class PublicKey {
 public:
  static constexpr std::size_t length = 32;  // Bytes.

  /// From base64. Starts the library that verifies, so that a key can be used at once. Refuses all but the canonical
  /// spelling of a point in the group of prime order: with any other, a signature could hold for more than one message.
  static system::Result<PublicKey> parse(std::string_view base64);

  const std::array<unsigned char, length>& bytes() const { return bytes_; }

 private:
  PublicKey() = default;

  std::array<unsigned char, length> bytes_ = {};
};

}  // namespace tarnwell::updater
