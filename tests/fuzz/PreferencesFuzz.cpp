#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "fuzz/Require.h"
#include "updateclient/settings/UpdaterPreferences.h"

namespace tarnwell::fuzz {
namespace {

namespace fs = std::filesystem;

/// A folder of this process's own, which is emptied for each text.
fs::path emptyFolder() {
  const fs::path folder = fs::temp_directory_path() / ("tarnwell-fuzz-" + std::to_string(::getpid()));
  fs::remove_all(folder);
  fs::create_directory(folder);
  return folder;
}

/// The text is the file. Whatever it says, a value that is set comes back, and the file is kept, here or set aside.
void run(std::string_view text) {
  const fs::path folder = emptyFolder();
  std::ofstream(folder / "updates") << text;
  const updateclient::UpdaterPreferences preferences(folder / "updates");
  require(preferences.interval() >= updateclient::UpdaterPreferences::shortestInterval);
  require(preferences.interval() <= updateclient::UpdaterPreferences::longestInterval);
  preferences.lastCheck();
  const bool isAside = fs::exists(folder / "updates.damaged-1");
  require(isAside || preferences.skippedVersion().size() <= text.size());
  require(static_cast<bool>(preferences.setAutomaticDownloads(true)) && preferences.automaticDownloads());
  fs::remove_all(folder);
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
