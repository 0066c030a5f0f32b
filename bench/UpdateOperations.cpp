#include "UpdateOperations.h"

#include <expat.h>
#include <sodium.h>
#include <sys/mman.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "system/base/Descriptor.h"
#include "updater/feed/FeedReader.h"
#include "updater/signature/Base64.h"
#include "updater/signature/Signature.h"

namespace tarnwell::bench {
namespace {

std::string feedOf20Versions() {
  std::string items;
  for (int number = 1; number <= 20; ++number) {
    const std::string version = "1." + std::to_string(number);
    items +=
        "<item><title>Version " + version + "</title><x:version>" + version +
        "</x:version><pubDate>Mon, 02 Nov 2026 10:00:00 +0000</pubDate><description><![CDATA[<p>What is new.</p>]]>"
        "</description><enclosure url=\"https://tarnwell.example/tarnwell.deb\" length=\"1048576\" "
        "type=\"application/octet-stream\"/></item>";
  }
  return R"(<rss version="2.0" xmlns:x="http://www.andymatuschak.org/xml-namespaces/sparkle"><channel>)" + items +
         "</channel></rss>";
}

/// A package of 1 MiB with the signature that belongs to it.
class SignedPackage {
 public:
  SignedPackage() {
    std::array<unsigned char, crypto_sign_SECRETKEYBYTES> secret = {};
    const std::array<unsigned char, crypto_sign_SEEDBYTES> seed = {};
    if (sodium_init() < 0 || crypto_sign_seed_keypair(key.data(), secret.data(), seed.data()) != 0 ||
        crypto_sign_detached(signature.data(), nullptr, bytes.data(), bytes.size(), secret.data()) != 0) {
      std::abort();
    }
  }

  std::array<unsigned char, crypto_sign_PUBLICKEYBYTES> key = {};
  std::array<unsigned char, crypto_sign_BYTES> signature = {};
  std::vector<unsigned char> bytes = std::vector<unsigned char>(1024UL * 1024);
};

}  // namespace

void readFeed(int count) {
  const std::string feed = feedOf20Versions();
  for (int i = 0; i < count; ++i) {
    updater::FeedReader reader;
    if (!reader.feed(feed) || reader.finish()->size() != 20) {
      std::abort();
    }
  }
}

void parseFeed(int count) {
  const std::string feed = feedOf20Versions();
  for (int i = 0; i < count; ++i) {
    const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(XML_ParserCreateNS(nullptr, '\n'),
                                                                              &XML_ParserFree);
    if (XML_Parse(parser.get(), feed.data(), static_cast<int>(feed.size()), 1) != XML_STATUS_OK) {
      std::abort();
    }
  }
}

void verifyPackage(int count) {
  const SignedPackage package;
  const system::Descriptor file(::memfd_create("package", MFD_CLOEXEC));
  if (!file.writeAll({reinterpret_cast<const char*>(package.bytes.data()), package.bytes.size()})) {
    std::abort();
  }
  const std::string key = updater::encodeBase64(package.key);
  const std::string text = updater::encodeBase64(package.signature);
  for (int i = 0; i < count; ++i) {
    if (!updater::Signature::parse(text)->verify(*updater::PublicKey::parse(key), file.number(),
                                                 package.bytes.size())) {
      std::abort();
    }
  }
}

void verifyBytes(int count) {
  const SignedPackage package;
  for (int i = 0; i < count; ++i) {
    if (crypto_sign_verify_detached(package.signature.data(), package.bytes.data(), package.bytes.size(),
                                    package.key.data()) != 0) {
      std::abort();
    }
  }
}

}  // namespace tarnwell::bench
