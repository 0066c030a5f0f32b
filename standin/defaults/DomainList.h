#pragma once

#include <string>
#include <vector>

#include "system/Result.h"

namespace tarnwell::standin {

/// The names of the domains in the preferences folder of `root`, sorted; the global one is not among them.
system::Result<std::vector<std::string>> domainNames(const std::string& root);

}  // namespace tarnwell::standin
