#pragma once

#include "profile/exports/Targets.h"

namespace tarnwell::profile {

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
