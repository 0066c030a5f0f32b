#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string_view>

#include "fuzz/OwnFolder.h"
#include "fuzz/Require.h"
#include "updateclient/settings/UpdaterPreferences.h"

namespace tarnwell::fuzz {
namespace {

/// The text is the file. Whatever it says, a value that is set comes back, and the file is kept, here or set aside.
void run(std::string_view text) {
  const OwnFolder folder;
  const auto file = folder.path() / "updates";
  writeFile(file, text);
  const updateclient::UpdaterPreferences preferences(file);
  require(preferences.interval() >= updateclient::UpdaterPreferences::shortestInterval);
  require(preferences.interval() <= updateclient::UpdaterPreferences::longestInterval);
  preferences.lastCheck();
  const bool isAside = std::filesystem::exists(folder.path() / "updates.damaged-1");
  require(isAside || preferences.skippedVersion().size() <= text.size());
  require(static_cast<bool>(preferences.setAutomaticDownloads(true)) && preferences.automaticDownloads());
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
