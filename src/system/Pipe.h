#pragma once

#include "system/Descriptor.h"

namespace tarnwell::system {

/// An anonymous pipe. Both ends are closed on exec and stay clear of the standard streams.
struct Pipe {
  Descriptor readEnd = {};
  Descriptor writeEnd = {};

  /// Failing is a fault: without a pipe there is no launch.
  static Pipe create();

  /// Lets it hold as much as the system allows: a mebibyte as a rule, less for a user with many large pipes.
  void grow() const;
};

}  // namespace tarnwell::system
