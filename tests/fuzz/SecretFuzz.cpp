#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/OwnFolder.h"
#include "fuzz/Require.h"
#include "publish/SecretKey.h"
#include "updater/signature/PublicKey.h"
#include "updater/signature/Signature.h"

namespace tarnwell::fuzz {
namespace {

using publish::SecretKey;

/// The text is a publisher's private key. It is refused with a reason, or written again as it is and of use.
void run(std::string_view text) {
  const OwnFolder folder;
  const auto file = folder.path() / "private";
  writeFile(file, text);
  std::filesystem::permissions(file, std::filesystem::perms(0600));
  const auto key = SecretKey::read(file);
  require(contentOf(file) == text);
  if (!key) {
    require(key.error().message.find(file.string()) != std::string::npos);
    return;
  }
  const auto copy = folder.path() / "copy";
  require(static_cast<bool>(key->store(copy)));
  require(contentOf(copy) == std::string(text) + (text.ends_with('\n') ? "" : "\n"));
  require(updater::PublicKey::parse(key->publicText()) && updater::Signature::parse(key->sign("package")));
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
