#pragma once

#include <string>
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

// What stands behind each target of the list, a source each.

system::Result<Export> shellScript(const Profile& profile, const ExportOptions& options);
system::Result<Export> ansiblePlay(const Profile& profile, const ExportOptions& options);
system::Result<Export> nixDarwinModule(const Profile& profile, const ExportOptions& options);
system::Result<Export> homeManagerModule(const Profile& profile, const ExportOptions& options);
system::Result<Export> configurationProfile(const Profile& profile, const ExportOptions& options);
system::Result<Export> propertyList(const Profile& profile, const ExportOptions& options);
system::Result<Export> json(const Profile& profile, const ExportOptions& options);
system::Result<Export> toml(const Profile& profile, const ExportOptions& options);

}  // namespace tarnwell::profile
