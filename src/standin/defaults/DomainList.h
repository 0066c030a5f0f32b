#pragma once

#include <string>
#include <vector>

namespace tarnwell::standin {

/// The names of the domains in the preferences folder of `root`, sorted; the global one is not among them.
std::vector<std::string> domainNames(const std::string& root);

}  // namespace tarnwell::standin
