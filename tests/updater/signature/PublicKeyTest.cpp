#include "updater/signature/PublicKey.h"

#include <gtest/gtest.h>

#include <vector>

#include "updater/signature/SigningKey.h"

namespace tarnwell::updater {
namespace {

using KeyBytes = std::array<unsigned char, PublicKey::length>;

std::string refusalOfKey(std::string_view base64) {
  const auto result = PublicKey::parse(base64);
  return result ? "" : result.error().message;
}

KeyBytes bytesOf(const std::string& hexadecimal) {
  KeyBytes bytes = {};
  sodium_hex2bin(bytes.data(), bytes.size(), hexadecimal.data(), hexadecimal.size(), nullptr, nullptr, nullptr);
  return bytes;
}

KeyBytes ofPattern(unsigned char first, unsigned char middle, unsigned char last) {
  KeyBytes bytes = {};
  bytes.fill(middle);
  bytes.front() = first;
  bytes.back() = last;
  return bytes;
}

KeyBytes pointOfOrderEight() { return bytesOf("26e8958fc2b227b045c3f489f2ef98f0d5dfac05d3c63339b13802886d53fc05"); }

TEST(PublicKey, isReadFromBase64) {
  const SigningKey pair;
  const auto key = PublicKey::parse(pair.publicText());
  ASSERT_TRUE(key);
  EXPECT_EQ(key->bytes(), pair.publicKey);
}

TEST(PublicKey, hasOneSpelling) {
  const std::string text = SigningKey().publicText();
  std::string strayBits = text;
  strayBits[42] = static_cast<char>(strayBits[42] + 1);
  const std::vector<std::string> others = {text.substr(0, 43),
                                           text + "=",
                                           " " + text,
                                           text + "\n",
                                           text.substr(0, 20) + "\n" + text.substr(20),
                                           text + text,
                                           "A" + text,
                                           text.substr(4),
                                           text.substr(0, 40),
                                           "not base64 at all",
                                           strayBits,
                                           text + "AA",
                                           "====",
                                           std::string(44, '='),
                                           std::string(1'000'000, 'A'),
                                           std::string(text).replace(43, 1, "A"),
                                           std::string(text).replace(5, 1, std::string(1, '\0')),
                                           std::string(text).replace(7, 1, "-"),
                                           std::string(text).replace(7, 1, "_")};
  for (const std::string& other : others) {
    EXPECT_EQ(refusalOfKey(other), "the key is not 32 bytes in base64") << other.substr(0, 60);
  }
  EXPECT_EQ(refusalOfKey(""), "the key is missing");
}

TEST(PublicKey, isNoPointOfSmallOrder) {
  const std::vector<KeyBytes> points = {
      ofPattern(0x01, 0x00, 0x00),
      ofPattern(0xec, 0xff, 0x7f),
      ofPattern(0x00, 0x00, 0x00),
      ofPattern(0x00, 0x00, 0x80),
      pointOfOrderEight(),
      bytesOf("26e8958fc2b227b045c3f489f2ef98f0d5dfac05d3c63339b13802886d53fc85"),
      bytesOf("c7176a703d4dd84fba3c0b760d10670f2a2053fa2c39ccc64ec7fd7792ac037a"),
      bytesOf("c7176a703d4dd84fba3c0b760d10670f2a2053fa2c39ccc64ec7fd7792ac03fa"),
      ofPattern(0x01, 0x00, 0x80),
      ofPattern(0xec, 0xff, 0xff),
  };
  for (const KeyBytes& point : points) {
    EXPECT_EQ(refusalOfKey(encodeBase64(point)), "the key is weak or no key at all");
  }
}

TEST(PublicKey, isNoPointBesideTheGroup) {
  KeyBytes mixed = {};
  ASSERT_EQ(crypto_core_ed25519_add(mixed.data(), SigningKey().publicKey.data(), pointOfOrderEight().data()), 0);
  EXPECT_EQ(refusalOfKey(encodeBase64(mixed)), "the key is weak or no key at all");
  EXPECT_EQ(refusalOfKey(encodeBase64(ofPattern(0x02, 0x00, 0x00))), "the key is weak or no key at all");
}

TEST(PublicKey, isInItsCanonicalForm) {
  for (unsigned char above = 0xed; above != 0; ++above) {
    EXPECT_EQ(refusalOfKey(encodeBase64(ofPattern(above, 0xff, 0x7f))), "the key is not in its canonical form");
    EXPECT_EQ(refusalOfKey(encodeBase64(ofPattern(above, 0xff, 0xff))), "the key is not in its canonical form");
  }
}

}  // namespace
}  // namespace tarnwell::updater
