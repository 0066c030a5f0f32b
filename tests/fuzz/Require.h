#pragma once

namespace tarnwell::fuzz {

/// Ends the run, which keeps the input, when something does not hold.
inline void require(bool holds) {
  if (!holds) {
    __builtin_trap();
  }
}

}  // namespace tarnwell::fuzz
