#include "standin/store/SystemRoot.h"

#include <cstdlib>

namespace tarnwell::standin {
namespace {

std::string variable(const char* name) {
  const char* value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): one thread
  return value == nullptr ? std::string() : value;
}

}  // namespace

std::optional<std::string> systemRoot() {
  if (std::string root = variable("MACOS_ROOT"); !root.empty()) {
    return root;
  }
  // The base directory rules have a relative path ignored.
  if (const std::string data = variable("XDG_DATA_HOME"); data.starts_with('/')) {
    return data + "/macos-standin";
  }
  if (const std::string home = variable("HOME"); !home.empty()) {
    return home + "/.local/share/macos-standin";
  }
  return std::nullopt;
}

std::string preferencesFolder(const std::string& root) { return root + "/Library/Preferences"; }

std::string logsFolder(const std::string& root) { return root + "/Library/Logs"; }

}  // namespace tarnwell::standin
