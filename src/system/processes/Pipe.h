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

/// A pipe for the output of a process that is not to be read. A process that was given all of it meets no broken pipe,
/// whatever becomes of this one. It holds as much as the system allows: a mebibyte as a rule on Linux, less for a user
/// with many large pipes, and 64 kibibytes on macOS. All is closed on exec and clear of the standard streams.
struct UnreadPipe {
  Descriptor output = {};
  /// What the process has to have beside it; none where the output is the pipe's other end as well.
  Descriptor otherEnd = {};

  /// Failing is a fault.
  static UnreadPipe create();
};

}  // namespace tarnwell::system
