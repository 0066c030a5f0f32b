#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarnwell::standin {

/// A preference domain: the name that messages use, and the property list that holds it.
struct Domain {
  std::string name;
  std::string path;

  /// A reverse-DNS name, or -g, -globalDomain and NSGlobalDomain for what all applications share, both in the
  /// preferences folder of `root`; or an absolute path with or without .plist, which
  /// lies in `root` where it is one of managed preferences. Nothing for a text that is none of
  /// these: an empty one, a name that has a slash in it, another flag.
  static std::optional<Domain> resolve(std::string_view text, const std::string& root);
};

}  // namespace tarnwell::standin
