#pragma once

#include <filesystem>

#include "publish/Release.h"
#include "system/base/Result.h"

namespace tarnwell::publish {

/// Signs the package and puts an item for it into the feed in that file, which is made where there is none, once no
/// other publisher is at it. Wholly or not at all: not where the updater would not offer the item or not believe the
/// package. Returns why not.
system::Result<void> publishRelease(const Release& release, const std::filesystem::path& feed);

}  // namespace tarnwell::publish
