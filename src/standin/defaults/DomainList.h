#pragma once

#include <string>
#include <vector>

#include "standin/store/Failure.h"

namespace tarnwell::standin {

/// The names of the domains in the preferences folder of `root`, sorted; the global one is not among them.
Result<std::vector<std::string>> domainNames(const std::string& root);

}  // namespace tarnwell::standin
