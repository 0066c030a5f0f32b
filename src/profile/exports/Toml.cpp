#include "profile/exports/Formats.h"
#include "profile/toml/ProfileWriter.h"

namespace tarnwell::profile {

system::Result<Export> toml(const Profile& profile, const ExportOptions&) { return Export{profileText(profile)}; }

}  // namespace tarnwell::profile
