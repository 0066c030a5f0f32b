#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "fuzz/Require.h"
#include "system/base/Descriptor.h"
#include "updater/signature/Base64.h"
#include "updater/signature/PublicKey.h"
#include "updater/signature/Signature.h"

namespace tarnwell::fuzz {
namespace {

using updater::encodeBase64;
using updater::PublicKey;
using updater::Signature;

// Of the pair whose seed is nothing but ones.
constexpr std::string_view someKey = "iojj3XQJ8ZX9UtstPLpdcspnCb8dlBIb83SIAbQPb1w=";

int package() {
  static const system::Descriptor file(::memfd_create("package", MFD_CLOEXEC));
  static const bool isWritten = ::write(file.number(), "package", 7) == 7;
  require(isWritten);
  return file.number();
}

/// The whole text is a key, and it is a signature.
void run(std::string_view text) {
  const auto key = PublicKey::parse(text);
  if (key) {
    require(encodeBase64(key->bytes()) == text);
  }
  const auto signature = Signature::parse(text);
  if (signature) {
    require(text.size() == 88);
    const auto real = *PublicKey::parse(someKey);
    require(!signature->verify(real, package(), 7));
  }
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
