#pragma once

#include "core/Descriptor.h"

namespace tarnwell::core {

/// An anonymous pipe. Both ends are closed on exec and stay clear of the standard streams.
struct Pipe {
  Descriptor readEnd = {};
  Descriptor writeEnd = {};

  /// Failing is a fault: without a pipe there is no launch.
  static Pipe create();
};

}  // namespace tarnwell::core
