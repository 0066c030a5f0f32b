#include "publish/SecretKey.h"

#include <fcntl.h>
#include <sodium.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <system_error>

#include "diagnostics/Fault.h"
#include "system/base/Descriptor.h"
#include "system/files/MappedFile.h"
#include "updater/signature/Base64.h"
#include "updater/signature/CryptoLibrary.h"

namespace tarnwell::publish {
namespace {

using system::MappedFile;
using updater::decodeBase64;
using updater::encodeBase64;

system::Failure systemFailure(const std::string& what, const std::filesystem::path& file) {
  return system::systemFailure(what + " " + file.string());
}

/// Both halves of a key pair, as the library has them.
struct KeyPair {
  explicit KeyPair(const unsigned char* seed) { crypto_sign_seed_keypair(open.data(), secret.data(), seed); }
  KeyPair(const KeyPair&) = delete;
  KeyPair& operator=(const KeyPair&) = delete;
  ~KeyPair() { sodium_memzero(secret.data(), secret.size()); }

  std::array<unsigned char, crypto_sign_PUBLICKEYBYTES> open = {};
  std::array<unsigned char, crypto_sign_SECRETKEYBYTES> secret = {};
};

}  // namespace

SecretKey SecretKey::generate() {
  if (!updater::isCryptoLibraryReady()) {
    diagnostics::fault("there is no source of chance");
  }
  SecretKey key;
  randombytes_buf(key.seed_.data(), key.seed_.size());
  return key;
}

SecretKey::~SecretKey() { sodium_memzero(seed_.data(), seed_.size()); }

system::Result<SecretKey> SecretKey::read(const std::filesystem::path& file) {
  const system::Descriptor opened(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  struct stat status = {};
  if (!opened || ::fstat(opened.number(), &status) != 0) {
    return systemFailure("cannot read", file);
  }
  if (!S_ISREG(status.st_mode)) {
    return system::Failure{file.string() + " is not a private key"};
  }
  if ((status.st_mode & 077U) != 0) {
    return system::Failure{"others can read " + file.string() + "; make it yours alone: chmod 600"};
  }
  const auto mapped = system::MappedFile::create(opened.number());
  if (!mapped) {
    return system::Failure{file.string() + ": " + mapped.error().message};
  }
  const auto& bytes = *mapped;
  std::string_view text(reinterpret_cast<const char*>(bytes.bytes()), bytes.length());
  text.remove_suffix(text.ends_with('\n') ? 1 : 0);
  if (!updater::isCryptoLibraryReady()) {
    return system::Failure{"the library that signs cannot be started"};
  }
  SecretKey key;
  if (!decodeBase64(text, key.seed_)) {
    return system::Failure{file.string() + " is not a private key"};
  }
  return key;
}

system::Result<void> SecretKey::store(const std::filesystem::path& file) const {
  const system::Descriptor created(::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
  if (!created) {
    return systemFailure("cannot make", file);
  }
  std::string text = encodeBase64(seed_) + "\n";
  const bool isWritten = created.writeAll(text) && ::fsync(created.number()) == 0;
  auto result = isWritten ? system::Result<void>() : systemFailure("cannot write", file);
  sodium_memzero(text.data(), text.size());
  if (!result) {
    ::unlink(file.c_str());
  }
  return result;
}

std::string SecretKey::publicText() const { return encodeBase64(KeyPair(seed_.data()).open); }

system::Result<std::string> SecretKey::sign(int descriptor) const {
  const auto file = MappedFile::create(descriptor);
  return file ? system::Result<std::string>(sign({reinterpret_cast<const char*>(file->bytes()), file->length()}))
              : file.error();
}

std::string SecretKey::sign(std::string_view bytes) const {
  const KeyPair pair(seed_.data());
  std::array<unsigned char, crypto_sign_BYTES> signature = {};
  const auto* first = reinterpret_cast<const unsigned char*>(bytes.data());
  crypto_sign_detached(signature.data(), nullptr, first, bytes.size(), pair.secret.data());
  return encodeBase64(signature);
}

}  // namespace tarnwell::publish
