#pragma once

#include <cstddef>
#include <string_view>

#include "profile/values/Profile.h"
#include "system/base/Result.h"

namespace tarnwell::profile {

/// In bytes. Of a longer file one byte more is enough to have it refused.
inline constexpr std::size_t largestProfile = 65536;

/// Reads a profile in TOML, whole or not at all. The failure is one line, "FILE:LINE:COLUMN: " and the first that is
/// wrong in the text, where `file` is what to call it; lines and columns count from 1. Whatever is not known is an
/// error, so that nothing that was meant is skipped.
system::Result<Profile> readProfile(std::string_view text, std::string_view file);

}  // namespace tarnwell::profile
