#pragma once

#include <string>

#include "profile/values/Profile.h"

namespace tarnwell::profile {

/// The profile in TOML, in the one way in which it is written: equal profiles give the same text, which reads back to
/// an equal one.
std::string profileText(const Profile& profile);

}  // namespace tarnwell::profile
