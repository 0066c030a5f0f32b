#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/Require.h"
#include "fuzz/Words.h"
#include "host/linux/NumberLocale.h"
#include "host/linux/start/LaunchArguments.h"
#include "host/linux/start/RunningAppImage.h"
#include "installation/BaseFolders.h"
#include "installation/FindProgram.h"
#include "installation/LaunchedAtLogin.h"
#include "installation/MacosVersion.h"
#include "installation/SearchPath.h"
#include "installation/UserEnvironment.h"
#include "standin/store/SystemRoot.h"
#include "system/base/Utf8.h"

namespace tarnwell::fuzz {
namespace {

namespace fs = std::filesystem;

constexpr std::array<const char*, 14> variables = {
    "HOME",          "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME", "XDG_DATA_HOME",        "PATH",
    "APPIMAGE",      "APPDIR",          "LC_ALL",         "LC_NUMERIC",     "XDG_ACTIVATION_TOKEN", "LANG",
    "MACOS_VERSION", "MACOS_ROOT"};

std::string valueOf(const char* variable) {
  const char* value = ::getenv(variable);
  return value == nullptr ? "" : value;
}

/// Takes over those that we read.
void takeEnvironment(const std::vector<std::string>& words) {
  for (const char* variable : variables) {
    ::unsetenv(variable);
    for (const std::string& word : words) {
      if (word.starts_with(std::string(variable) + "=")) {
        ::setenv(variable, word.substr(word.find('=') + 1).c_str(), 1);
      }
    }
  }
}

bool isShown(char c) { return static_cast<unsigned char>(c) >= ' ' && c != 0x7f; }

void checkMacosVersion() {
  const auto version = installation::macosVersion();
  if (!version) {
    const std::string& reason = version.error().message;
    require(std::all_of(reason.begin(), reason.end(), isShown));
    require(system::isUtf8(reason));
    return;
  }
  const auto& [major, minor, patch] = *version;
  require(major >= 14 && minor >= 0 && patch >= 0);
  const std::string text = std::to_string(major) + "." + std::to_string(minor) + "." + std::to_string(patch);
  const auto again = installation::parseMacosVersion("", text);
  require(again && *again == *version);
}

void checkFolders() {
  for (const fs::path& folder :
       {installation::configurationFolder(), installation::cacheFolder(), installation::stateFolder()}) {
    require(folder.empty() || folder.is_absolute());
  }
  const auto root = standin::systemRoot();
  require(!root || (!root->empty() && system::isUtf8(*root)));
  const auto image = host_linux::runningAppImage("/usr/bin/true");
  require(!image || (image->is_absolute() && fs::is_regular_file(*image)));
}

/// The folder is first, nowhere else, and what else was there is still there.
void checkSearchPath() {
  const std::string before = valueOf("PATH");
  const std::string after = installation::searchPathWith("/own", before);
  require(after.starts_with("/own:") || after == "/own");
  require((after + ":").find(":/own:") == std::string::npos);
  require(installation::searchPathWith("/own", after) == after);
  installation::isFound("true");
}

void checkLocale() {
  constexpr std::size_t longest = 64 + 5;  // A name and a script.
  const std::string locale = host_linux::numberLocaleOfEnvironment();
  require(!locale.empty() && locale.size() <= longest && locale.find_first_of(".@ /") == std::string::npos);
  require(std::all_of(locale.begin(), locale.end(), isShown) && system::isUtf8(locale));
}

void checkUserEnvironment() {
  for (const std::string& entry : installation::userEnvironment()) {
    require(!entry.starts_with("XDG_ACTIVATION_TOKEN="));
  }
}

/// The words are arguments as well.
void checkArguments(const std::vector<std::string>& words) {
  const auto isKnown = [](const std::string& word) { return word == installation::launchedAtLogin; };
  std::vector<const char*> arguments;
  std::transform(words.begin(), words.end(), std::back_inserter(arguments),
                 [](const auto& word) { return word.c_str(); });
  const auto launch = host_linux::LaunchArguments::parse(arguments);
  require(static_cast<bool>(launch) == std::all_of(words.begin(), words.end(), isKnown));
  require(!launch || launch->atLogin == !words.empty());
}

void run(std::string_view text) {
  const std::vector<std::string> words = wordsIn(text);
  takeEnvironment(words);
  checkMacosVersion();
  checkFolders();
  checkSearchPath();
  checkLocale();
  checkUserEnvironment();
  checkArguments(words);
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
