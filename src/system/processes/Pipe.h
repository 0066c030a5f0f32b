#pragma once

#include <string_view>

#include "system/base/Descriptor.h"

namespace tarnwell::system {

/// An anonymous pipe. Both ends are closed on exec and stay clear of the standard streams.
struct Pipe {
  Descriptor readEnd = {};
  Descriptor writeEnd = {};

  /// Failing is a fault that names `action`: without a pipe there is none.
  static Pipe create(std::string_view action = "make a pipe");
};

}  // namespace tarnwell::system
