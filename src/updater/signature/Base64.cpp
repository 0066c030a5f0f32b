#include "updater/signature/Base64.h"

#include <sodium.h>

namespace tarnwell::updater {
namespace {

constexpr int usualAlphabet = sodium_base64_VARIANT_ORIGINAL;

}  // namespace

std::string encodeBase64(std::span<const unsigned char> bytes) {
  std::string text(sodium_base64_encoded_len(bytes.size(), usualAlphabet), '\0');
  sodium_bin2base64(text.data(), text.size(), bytes.data(), bytes.size(), usualAlphabet);
  text.pop_back();  // The terminator.
  return text;
}

bool decodeBase64(std::string_view text, std::span<unsigned char> bytes) {
  std::size_t length = 0;
  const int status =
      sodium_base642bin(bytes.data(), bytes.size(), text.data(), text.size(), nullptr, &length, nullptr, usualAlphabet);
  // Written again it must be the same text: whatever the decoder lets pass, there is one spelling.
  std::string again = encodeBase64(bytes);
  const bool isSame = again == text;
  // It may be a private key's.
  sodium_memzero(again.data(), again.size());
  return status == 0 && length == bytes.size() && isSame;
}

}  // namespace tarnwell::updater
