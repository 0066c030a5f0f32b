#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "profile/values/Profile.h"

namespace tarnwell::profile {

/// The comment that a text in a language with "# " comments begins with: what it is, and what the profile is called.
std::string headComment(std::string_view what, const Profile& profile);

/// A line for each setting that shall not be there, for a target that cannot say so.
std::vector<std::string> unsaidUnset(std::string_view target, const Profile& profile);

/// Each of the lines with something before and behind it, which makes comments of them.
std::string comments(std::string_view before, const std::vector<std::string>& lines, std::string_view behind = ".\n");

}  // namespace tarnwell::profile
