#pragma once

#include <string>

namespace tarnwell::standin {

/// The folder that the running program lies in.
std::string ownFolder();

}  // namespace tarnwell::standin
