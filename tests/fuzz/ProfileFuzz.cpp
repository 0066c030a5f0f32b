#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/Require.h"
#include "profile/toml/ProfileReader.h"
#include "profile/toml/ProfileWriter.h"
#include "profile/values/Name.h"

namespace tarnwell::fuzz {
namespace {

/// A profile can be written and comes back; what is wrong with any other text is said in one visible line.
void run(std::string_view text) {
  const auto read = profile::readProfile(text, "file");
  if (!read) {
    const std::string& error = read.error().message;
    require(error.starts_with("file:") && profile::visible(error) == error);
    return;
  }
  require(profile::isProfileName(read->name));
  const std::string written = profile::profileText(*read);
  const auto again = profile::readProfile(written, "file");
  require(again && *again == *read && profile::profileText(*again) == written);
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
