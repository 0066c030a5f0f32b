#pragma once

#include <sys/resource.h>

#include <algorithm>

namespace tarnwell::confinement {

/// Sets a limit of this process; one that is lower already stays as it is. False, with errno set, when that fails.
inline bool limitResource(decltype(RLIMIT_CPU) resource, rlim_t most) {
  rlimit both = {};
  if (::getrlimit(resource, &both) != 0) {
    return false;
  }
  both.rlim_cur = both.rlim_max = std::min(most, both.rlim_max);
  return ::setrlimit(resource, &both) == 0;
}

}  // namespace tarnwell::confinement
