#pragma once

#include "system/base/Result.h"

namespace tarnwell::release {

/// Says on standard error, in one line, what went wrong where there is no window to show it.
void report(const system::Failure& failure);
/// The same when something went wrong.
void report(const system::Result<void>& result);

}  // namespace tarnwell::release
