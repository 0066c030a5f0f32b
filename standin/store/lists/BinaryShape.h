#pragma once

#include <optional>
#include <string_view>

#include "system/base/Result.h"

namespace tarnwell::standin {

/// Why the library must not be given a binary property list: it is not well formed, nested too deep, refers to itself,
/// or holds what the library would change: sets, half surrogate pairs, NUL within texts, integers beyond 64 bits, dates
/// outside the years 0 to 9999. Nothing when every value survives being read and written.
std::optional<system::Failure> binaryFault(std::string_view bytes);

}  // namespace tarnwell::standin
