#pragma once

#include <sodium.h>

#include <array>
#include <string>
#include <string_view>

#include "updater/signature/Base64.h"

namespace tarnwell::updater {

/// A key pair of a test's own; the same `seed` gives the same pair.
class SigningKey {
 public:
  explicit SigningKey(unsigned char seed = 1) {
    std::array<unsigned char, crypto_sign_SEEDBYTES> bytes = {};
    bytes.fill(seed);
    crypto_sign_seed_keypair(publicKey.data(), secret_.data(), bytes.data());
  }

  std::array<unsigned char, crypto_sign_BYTES> sign(std::string_view message) const {
    std::array<unsigned char, crypto_sign_BYTES> signature = {};
    crypto_sign_detached(signature.data(), nullptr, reinterpret_cast<const unsigned char*>(message.data()),
                         message.size(), secret_.data());
    return signature;
  }
  std::string signatureOf(std::string_view message) const { return encodeBase64(sign(message)); }
  std::string publicText() const { return encodeBase64(publicKey); }

  std::array<unsigned char, crypto_sign_PUBLICKEYBYTES> publicKey = {};

 private:
  std::array<unsigned char, crypto_sign_SECRETKEYBYTES> secret_ = {};
};

}  // namespace tarnwell::updater
