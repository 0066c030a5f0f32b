#pragma once

#include <optional>

#include "host/linux/Result.h"

namespace tarnwell::host_linux::updates {

/// Says on standard error, in one line, what went wrong where nobody can be shown it.
void report(const Failure& failure);
/// The same when something went wrong.
void report(const std::optional<Failure>& failure);

}  // namespace tarnwell::host_linux::updates
