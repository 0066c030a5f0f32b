#include "host/linux/UpdaterPreferences.h"

#include <cstdlib>
#include <fstream>
#include <string_view>
#include <vector>

#include "host/linux/ReplaceFile.h"

namespace tarnwell::host_linux {
namespace {

namespace fs = std::filesystem;

fs::path configurationFolder() {
  const char* configured = ::getenv("XDG_CONFIG_HOME");
  if (configured != nullptr && fs::path(configured).is_absolute()) {
    return configured;
  }
  const char* home = ::getenv("HOME");
  return fs::path(home != nullptr ? home : "/") / ".config";
}

std::vector<std::string> linesOf(const fs::path& file) {
  std::vector<std::string> lines;
  std::ifstream stream(file);
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(line);
  }
  return lines;
}

bool isFor(const std::string& line, const std::string& key) { return line.rfind(key + "=", 0) == 0; }

}  // namespace

UpdaterPreferences UpdaterPreferences::ofUser() {
  return UpdaterPreferences(configurationFolder() / "tarnwell" / "updates.conf");
}

bool UpdaterPreferences::isOn(const std::string& key) const {
  bool on = false;
  for (const std::string& line : linesOf(file_)) {
    if (isFor(line, key)) {
      on = line == key + "=1";
    }
  }
  return on;
}

std::optional<Failure> UpdaterPreferences::set(const std::string& key, bool on) const {
  std::string text;
  for (const std::string& line : linesOf(file_)) {
    if (!isFor(line, key)) {
      text += line + "\n";
    }
  }
  return replaceFile(file_, text + key + (on ? "=1\n" : "=0\n"));
}

}  // namespace tarnwell::host_linux
