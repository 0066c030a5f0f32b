#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "system/base/Result.h"
#include "updater/signature/PublicKey.h"

namespace tarnwell::updater {

/// A plain Ed25519 signature over a whole file.
class Signature {
 public:
  static constexpr std::size_t length = 64;  // Bytes.

  /// From base64. Refuses a second half that is not reduced, with which one signature could be made from another.
  static system::Result<Signature> parse(std::string_view base64);

  /// Holds only when the file behind `descriptor` is `fileLength` bytes long and this is its signature by the
  /// owner of `key`. Blocks for as long as reading the file takes. The file must not change meanwhile.
  system::Result<void> verify(const PublicKey& key, int descriptor, std::uint64_t fileLength) const;
  /// Whether it is the signature of these bytes by the owner of `key`.
  bool holdsFor(const PublicKey& key, std::string_view bytes) const;

 private:
  Signature() = default;

  std::array<unsigned char, length> bytes_ = {};
};

}  // namespace tarnwell::updater
