#include "standin/store/SystemRoot.h"

#include <cstdlib>

#include "system/base/Utf8.h"

namespace tarnwell::standin {
namespace {

// Messages name files below it, and what reads those takes them for UTF-8.
system::Result<std::string> rootBelow(const std::string& variable, const std::string& value, const std::string& below) {
  if (!system::isUtf8(value)) {
    return system::Failure{variable + " is not UTF-8, so that no file below it can be told by its name."};
  }
  return value + below;
}

}  // namespace

system::Result<std::string> systemRoot() {
  return systemRoot([](const std::string& name) {
    const char* value = std::getenv(name.c_str());
    return value == nullptr ? std::string() : value;
  });
}

system::Result<std::string> systemRoot(const std::function<std::string(const std::string& name)>& variable) {
  if (const std::string root = variable("MACOS_ROOT"); !root.empty()) {
    return rootBelow("MACOS_ROOT", root, "");
  }
  // The base directory rules have a relative path ignored.
  if (const std::string data = variable("XDG_DATA_HOME"); data.starts_with('/')) {
    return rootBelow("XDG_DATA_HOME", data, "/macos-standin");
  }
  if (const std::string home = variable("HOME"); !home.empty()) {
    return rootBelow("HOME", home, "/.local/share/macos-standin");
  }
  return system::Failure{"None of MACOS_ROOT, XDG_DATA_HOME and HOME says where preferences are."};
}

std::string preferencesFolder(const std::string& root) { return root + "/Library/Preferences"; }

std::string logsFolder(const std::string& root) { return root + "/Library/Logs"; }

}  // namespace tarnwell::standin
