#pragma once

#include <compare>

namespace tarnwell::kit {

/// A version of the system that the application runs on.
struct SystemVersion {
  int major = 14;
  int minor = 0;
  int patch = 0;
  // NOLINTNEXTLINE(modernize-use-nullptr): the tool takes the comparison's zero for a pointer
  friend auto operator<=>(const SystemVersion&, const SystemVersion&) = default;
};

}  // namespace tarnwell::kit
