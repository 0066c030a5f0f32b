#include "standin/store/SystemRoot.h"

#include <cstdlib>

namespace tarnwell::standin {

std::optional<std::string> systemRoot() {
  return systemRoot([](const std::string& name) {
    const char* value = std::getenv(name.c_str());  // NOLINT(concurrency-mt-unsafe): one thread
    return value == nullptr ? std::string() : value;
  });
}

std::optional<std::string> systemRoot(const std::function<std::string(const std::string& name)>& variable) {
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
