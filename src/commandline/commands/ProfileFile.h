#pragma once

#include <string>

#include "profile/values/Profile.h"
#include "system/base/Result.h"

namespace tarnwell::commandline {

/// The profile in the file `name`, which may be a pipe; "-" is standard input. Blocks until its end.
system::Result<profile::Profile> readProfileFile(const std::string& name);

}  // namespace tarnwell::commandline
