#include "updater/signature/Signature.h"

#include <sodium.h>

#include <algorithm>

#include "system/files/MappedFile.h"
#include "updater/signature/Base64.h"

namespace tarnwell::updater {
namespace {

using Half = std::array<unsigned char, 32>;

/// The order of the group, 2^252 + 27742317777372353535851937790883648493, the lowest byte first.
constexpr Half groupOrder = {0xed, 0xd3, 0xf5, 0x5c, 0x1a, 0x63, 0x12, 0x58, 0xd6, 0x9c, 0xf7,
                             0xa2, 0xde, 0xf9, 0xde, 0x14, 0,    0,    0,    0,    0,    0,
                             0,    0,    0,    0,    0,    0,    0,    0,    0,    0x10};

bool isBelowGroupOrder(const unsigned char* half) {
  using Backwards = std::reverse_iterator<const unsigned char*>;
  return std::lexicographical_compare(Backwards(half + groupOrder.size()), Backwards(half), groupOrder.rbegin(),
                                      groupOrder.rend());
}

}  // namespace

system::Result<Signature> Signature::parse(std::string_view base64) {
  Signature signature;
  if (base64.empty()) {
    return system::Failure{"the signature is missing"};
  }
  if (!decodeBase64(base64, signature.bytes_)) {
    return system::Failure{"the signature is not 64 bytes in base64"};
  }
  if (!isBelowGroupOrder(signature.bytes_.data() + groupOrder.size())) {
    return system::Failure{"the signature is not in its canonical form"};
  }
  return signature;
}

// The algorithm wants the whole message at once. The file is mapped rather than copied: its pages are in the cache, as
// it was just written, and half a gigabyte of our own could be more than there is.
system::Result<void> Signature::verify(const PublicKey& key, int descriptor, std::uint64_t fileLength) const {
  const auto mapped = system::MappedFile::create(descriptor);
  if (!mapped) {
    return mapped.error();
  }
  const auto& file = *mapped;
  if (file.length() != fileLength) {
    return system::Failure{"the file does not have the length that it should have"};
  }
  if (!holdsFor(key, {reinterpret_cast<const char*>(file.bytes()), file.length()})) {
    return system::Failure{"the signature does not belong to this file and key"};
  }
  return {};
}

bool Signature::holdsFor(const PublicKey& key, std::string_view bytes) const {
  const auto* first = reinterpret_cast<const unsigned char*>(bytes.data());
  return crypto_sign_verify_detached(bytes_.data(), first, bytes.size(), key.bytes().data()) == 0;
}

}  // namespace tarnwell::updater
