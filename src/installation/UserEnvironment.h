#pragma once

#include <string>
#include <vector>

namespace tarnwell::installation {

/// Keeps this process's environment for `userEnvironment`. To be called before we change any of it; the first call
/// counts.
void keepUserEnvironment();

/// What programs that are started for the user find in their environment, "NAME=value" each: what was kept, or this
/// process's own where nothing was. The permission to come to the front that this start was given is left out, since it
/// is ours.
std::vector<std::string> userEnvironment();

}  // namespace tarnwell::installation
