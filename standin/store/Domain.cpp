#include "standin/store/Domain.h"

#include <algorithm>
#include <array>

#include "standin/store/SystemRoot.h"

namespace tarnwell::standin {
namespace {

constexpr std::string_view extension = ".plist";
constexpr std::array<std::string_view, 4> globalNames = {"-g", "-globalDomain", "NSGlobalDomain",
                                                         "Apple Global Domain"};

// What an administrator forces on a user. No other absolute path is the played system's.
constexpr std::string_view managedFolder = "/Library/Managed Preferences/";

bool isGlobal(std::string_view text) {
  return std::find(globalNames.begin(), globalNames.end(), text) != globalNames.end();
}

}  // namespace

std::optional<Domain> Domain::resolve(std::string_view text, const std::string& root) {
  const std::string folder = preferencesFolder(root) + "/";
  if (isGlobal(text)) {
    return Domain{"kCFPreferencesAnyApplication", folder + ".GlobalPreferences.plist"};
  }
  std::string name(text);
  if (text.starts_with('/') && !text.ends_with('/')) {
    std::string path = text.starts_with(managedFolder) ? root + name : name;
    path += text.ends_with(extension) ? "" : extension;
    return Domain{std::move(name), std::move(path)};
  }
  // What looks like a flag is one that is not understood, such as -currentHost.
  if (text.empty() || text.starts_with('-') || text.find('/') != std::string_view::npos) {
    return std::nullopt;
  }
  std::string path = folder + name + std::string(extension);
  return Domain{std::move(name), std::move(path)};
}

}  // namespace tarnwell::standin
