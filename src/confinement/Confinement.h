#pragma once

#include <string>
#include <vector>

#include "confinement/Rights.h"

namespace tarnwell::confinement {

/// Keeps those rights alone from now on, and for all processes that come of this one; there is no way back. To be
/// called while the process has one thread. Returns a sentence for the log of each fence that this system does not
/// offer.
std::vector<std::string> keepOnly(const Rights& rights);

}  // namespace tarnwell::confinement
