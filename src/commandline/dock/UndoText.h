#pragma once

#include <string>
#include <string_view>

#include "profile/values/Profile.h"
#include "system/base/Result.h"

namespace tarnwell::commandline {

/// Whether `undoText` can say a value, so that it reads back to the same: not where it is larger than a command line.
bool canBeKept(const core::StoredValue& value);

/// What settings were, as one line of JSON. None is of a value that cannot be kept.
std::string undoText(const profile::Before& before);

/// Reads that, whole or not at all. The failure is a line that begins with `file`, which is what to call it.
system::Result<profile::Before> readUndo(std::string_view text, const std::string& file);

}  // namespace tarnwell::commandline
