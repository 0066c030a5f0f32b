#include "updater/signature/Signature.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <vector>

#include "fixtures/Sandbox.h"
#include "system/base/Descriptor.h"
#include "updater/signature/SigningKey.h"

namespace tarnwell::updater {
namespace {

using SignatureBytes = std::array<unsigned char, Signature::length>;

constexpr const char* notThisFileAndKey = "the signature does not belong to this file and key";

std::string parseRefusalOf(std::string_view base64) {
  const auto result = Signature::parse(base64);
  return result ? "" : result.error().message;
}

system::Descriptor fileOf(const std::string& content) {
  const fixtures::Sandbox sandbox;
  sandbox.write("package", content);
  return system::Descriptor(::open((sandbox / "package").c_str(), O_RDONLY | O_CLOEXEC));
}

/// Why `signature` is refused for a file of this content; empty when it is not.
std::string refusalOfSignature(std::string_view signature, const std::string& content, std::string_view key) {
  const system::Descriptor file = fileOf(content);
  const auto parsedKey = PublicKey::parse(key);
  const auto parsed = Signature::parse(signature);
  if (!parsedKey) {
    return parsedKey.error().message;
  }
  if (!parsed) {
    return parsed.error().message;
  }
  const auto held = parsed->verify(*parsedKey, file.number(), content.size());
  return held ? "" : held.error().message;
}

std::string package() {
  std::string content;
  for (int number = 0; number < 1'000; ++number) {
    content += std::to_string(number);
  }
  return content;
}

template <class Container>
Container withFlippedBit(Container bytes, std::size_t bit) {
  auto& byte = bytes[bit / 8];
  byte = static_cast<typename Container::value_type>(static_cast<unsigned char>(byte) ^ (1U << (bit % 8)));
  return bytes;
}

TEST(Signature, holdsForTheFileItWasMadeFor) {
  const SigningKey key;
  EXPECT_EQ(refusalOfSignature(key.signatureOf(package()), package(), key.publicText()), "");
  EXPECT_EQ(refusalOfSignature(key.signatureOf(""), "", key.publicText()), "");
}

TEST(Signature, hasOneSpelling) {
  const std::string text = SigningKey().signatureOf(package());
  ASSERT_EQ(text.size(), 88U);
  std::string strayBits = text;
  strayBits[85] = static_cast<char>(strayBits[85] + 1);
  for (const std::string& other :
       {text.substr(0, 87), text.substr(0, 86), text.substr(0, 84), text.substr(1), text + "=", text + "AAAA",
        " " + text, text + " ", text + "\n", "\t" + text, text.substr(0, 44) + "\r\n" + text.substr(44), strayBits,
        std::string("A"), std::string("===="), std::string(88, '='), std::string(88, ' '), std::string("null"),
        text + text, std::string(1'000'000, 'A')}) {
    EXPECT_EQ(parseRefusalOf(other), "the signature is not 64 bytes in base64") << other.substr(0, 100);
  }
  EXPECT_EQ(parseRefusalOf(""), "the signature is missing");
}

TEST(Signature, isInItsCanonicalForm) {
  SignatureBytes bytes = SigningKey().sign(package());
  const std::array<unsigned char, 32> order = {0xed, 0xd3, 0xf5, 0x5c, 0x1a, 0x63, 0x12, 0x58, 0xd6, 0x9c, 0xf7,
                                               0xa2, 0xde, 0xf9, 0xde, 0x14, 0,    0,    0,    0,    0,    0,
                                               0,    0,    0,    0,    0,    0,    0,    0,    0,    0x10};
  sodium_add(bytes.data() + 32, order.data(), order.size());
  EXPECT_EQ(parseRefusalOf(encodeBase64(bytes)), "the signature is not in its canonical form");
  std::copy(order.begin(), order.end(), bytes.begin() + 32);
  EXPECT_EQ(parseRefusalOf(encodeBase64(bytes)), "the signature is not in its canonical form");
  bytes[32] -= 1;
  EXPECT_EQ(parseRefusalOf(encodeBase64(bytes)), "");
}

TEST(Signature, doesNotHoldForAnotherFile) {
  const SigningKey key;
  const std::string signature = key.signatureOf(package());
  for (const std::string& other : {std::string(), package() + "0", package().substr(1), package().substr(0, 1234)}) {
    EXPECT_EQ(refusalOfSignature(signature, other, key.publicText()), notThisFileAndKey);
  }
}

TEST(Signature, doesNotHoldForAnotherKey) {
  EXPECT_EQ(refusalOfSignature(SigningKey(1).signatureOf(package()), package(), SigningKey(2).publicText()),
            notThisFileAndKey);
}

TEST(Signature, doesNotHoldForAnyFlippedBitOfTheFilesStart) {
  const SigningKey key;
  const std::string signature = key.signatureOf(package());
  for (std::size_t bit = 0; bit < 512; ++bit) {
    ASSERT_EQ(refusalOfSignature(signature, withFlippedBit(package(), bit), key.publicText()), notThisFileAndKey)
        << bit;
  }
}

TEST(Signature, doesNotHoldForAnyFlippedBitOfItsOwn) {
  const SigningKey key;
  const SignatureBytes signature = key.sign(package());
  for (std::size_t bit = 0; bit < signature.size() * 8; ++bit) {
    ASSERT_NE(refusalOfSignature(encodeBase64(withFlippedBit(signature, bit)), package(), key.publicText()), "") << bit;
  }
}

TEST(Signature, doesNotHoldForAnyFlippedBitOfTheKey) {
  const SigningKey key;
  const std::string signature = key.signatureOf(package());
  for (std::size_t bit = 0; bit < key.publicKey.size() * 8; ++bit) {
    ASSERT_NE(refusalOfSignature(signature, package(), encodeBase64(withFlippedBit(key.publicKey, bit))), "") << bit;
  }
}

TEST(Signature, doesNotHoldForAnyChangedCharacterOfItsText) {
  const SigningKey key;
  const std::string signature = key.signatureOf(package());
  for (std::size_t at = 0; at < signature.size(); ++at) {
    for (const char other : {'A', 'z', '+', '=', ' ', '\n', '\0', '\xff'}) {
      std::string changed = signature;
      changed[at] = other;
      ASSERT_EQ(refusalOfSignature(changed, package(), key.publicText()).empty(), changed == signature) << at << other;
    }
  }
}

TEST(Signature, ofAPointOfSmallOrderHoldsForNothing) {
  SignatureBytes bytes = {};
  EXPECT_EQ(refusalOfSignature(encodeBase64(bytes), package(), SigningKey().publicText()), notThisFileAndKey);
  bytes[0] = 1;
  EXPECT_EQ(refusalOfSignature(encodeBase64(bytes), package(), SigningKey().publicText()), notThisFileAndKey);
}

TEST(Signature, overTheHashOfAFileIsNoSignatureOverTheFile) {
  std::array<unsigned char, crypto_sign_SECRETKEYBYTES> secret = {};
  std::array<unsigned char, crypto_sign_PUBLICKEYBYTES> key = {};
  const std::array<unsigned char, crypto_sign_SEEDBYTES> seed = {7};
  crypto_sign_seed_keypair(key.data(), secret.data(), seed.data());
  crypto_sign_state state = {};
  crypto_sign_init(&state);
  const std::string content = package();
  crypto_sign_update(&state, reinterpret_cast<const unsigned char*>(content.data()), content.size());
  SignatureBytes bytes = {};
  crypto_sign_final_create(&state, bytes.data(), nullptr, secret.data());
  EXPECT_EQ(refusalOfSignature(encodeBase64(bytes), content, encodeBase64(key)), notThisFileAndKey);
}

TEST(Signature, isNotEvenLookedAtForAFileOfAnotherLength) {
  const SigningKey key;
  const system::Descriptor file = fileOf(package());
  const auto signature = *Signature::parse(key.signatureOf(package()));
  const auto publicKey = *PublicKey::parse(key.publicText());
  EXPECT_TRUE(signature.verify(publicKey, file.number(), package().size()));
  for (const std::size_t length : {std::size_t{0}, package().size() - 1, package().size() + 1}) {
    const auto held = signature.verify(publicKey, file.number(), length);
    ASSERT_FALSE(held);
    EXPECT_EQ(held.error().message, "the file does not have the length that it should have");
  }
}

TEST(Signature, doesNotHoldForWhatCannotBeRead) {
  const SigningKey key;
  const auto signature = *Signature::parse(key.signatureOf(""));
  const auto publicKey = *PublicKey::parse(key.publicText());
  EXPECT_FALSE(signature.verify(publicKey, -1, 0));
  const fixtures::Sandbox sandbox;
  sandbox.write("package", "text");
  const system::Descriptor writeOnly(::open((sandbox / "package").c_str(), O_WRONLY | O_CLOEXEC));
  const auto held = signature.verify(publicKey, writeOnly.number(), 4);
  ASSERT_FALSE(held);
  EXPECT_EQ(held.error().message, "cannot read the file: Permission denied");
}

}  // namespace
}  // namespace tarnwell::updater
