#include "updater/signature/PublicKey.h"

#include <sodium.h>

#include <algorithm>

#include "updater/signature/Base64.h"
#include "updater/signature/CryptoLibrary.h"

namespace tarnwell::updater {
namespace {

/// 2^255 - 19, the lowest byte first.
std::array<unsigned char, PublicKey::length> prime() {
  std::array<unsigned char, PublicKey::length> number = {};
  number.fill(0xff);
  number.front() = 0xed;
  number.back() = 0x7f;
  return number;
}

bool isReduced(std::array<unsigned char, PublicKey::length> coordinate) {
  coordinate.back() &= 0x7f;  // The sign of the other coordinate.
  const auto limit = prime();
  return std::lexicographical_compare(coordinate.rbegin(), coordinate.rend(), limit.rbegin(), limit.rend());
}

}  // namespace

system::Result<PublicKey> PublicKey::parse(std::string_view base64) {
  if (!isCryptoLibraryReady()) {
    return system::Failure{"the library that verifies signatures cannot be started"};
  }
  PublicKey key;
  if (base64.empty()) {
    return system::Failure{"the key is missing"};
  }
  if (!decodeBase64(base64, key.bytes_)) {
    return system::Failure{"the key is not 32 bytes in base64"};
  }
  if (!isReduced(key.bytes_)) {
    return system::Failure{"the key is not in its canonical form"};
  }
  if (crypto_core_ed25519_is_valid_point(key.bytes_.data()) == 0) {
    return system::Failure{"the key is weak or no key at all"};
  }
  return key;
}

}  // namespace tarnwell::updater
