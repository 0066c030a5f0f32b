#include "installation/UserEnvironment.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "system/processes/Environment.h"

namespace tarnwell::installation {
namespace {

std::optional<std::vector<std::string>> kept;

bool isOurs(std::string_view entry) {
  return std::ranges::any_of(std::array{"XDG_ACTIVATION_TOKEN=", "DESKTOP_STARTUP_ID="},
                             [entry](const char* name) { return entry.starts_with(name); });
}

std::vector<std::string> presentEnvironment() {
  std::vector<std::string> entries;
  for (char** entry = system::processEnvironment(); *entry != nullptr; ++entry) {
    if (!isOurs(*entry)) {
      entries.emplace_back(*entry);
    }
  }
  return entries;
}

}  // namespace

void keepUserEnvironment() {
  if (!kept) {
    kept = presentEnvironment();
  }
}

std::vector<std::string> userEnvironment() { return kept ? *kept : presentEnvironment(); }

}  // namespace tarnwell::installation
