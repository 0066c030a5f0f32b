#pragma once

#include <string>
#include <string_view>

#include "system/Result.h"

namespace tarnwell::updater {

/// The version that the Debian package behind `descriptor` gives itself, as the system's own tool reads it. That tool
/// is given half a minute, and blocks for as long as it takes. A failure is a sentence for people.
system::Result<std::string> debianVersion(int descriptor);

/// Whether a package of this version is one of `version`, the same text but for a Debian revision. A feed that counts
/// revisions is refused: the running program does not know its own, and would take an older one for an update.
bool isDebianVersionOf(std::string_view packageVersion, std::string_view version);

}  // namespace tarnwell::updater
