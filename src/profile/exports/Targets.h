#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "profile/values/Profile.h"
#include "system/base/Result.h"

namespace tarnwell::profile {

struct ExportOptions {
  /// In reverse-DNS form, "org.example.dock": what a configuration profile replaces when it is installed again. No
  /// other target looks at it.
  std::string identifier = {};
  /// Whether a target that restarts nothing by itself shall be told to restart the Dock, at each of its runs.
  bool restartsDock = false;
};

/// A profile as a target takes it.
struct Export {
  std::string text = {};
  /// What the target cannot say, a line each without a full stop. It stands in the text as well, where the target has
  /// comments. A caller that must not lose anything writes nothing when there is any.
  std::vector<std::string> warnings = {};
};

struct Target {
  /// What it is called on the command line.
  std::string_view name;
  /// One line that says what takes it.
  std::string_view purpose;
  /// Fails where the options lack what the target needs.
  system::Result<Export> (*write)(const Profile& profile, const ExportOptions& options);
};

/// In the order in which they are listed.
extern const std::array<Target, 8> targets;

}  // namespace tarnwell::profile
