#pragma once

#include <string_view>

#include "system/Descriptor.h"

namespace tarnwell::system {

/// An anonymous pipe. Both ends are closed on exec and stay clear of the standard streams.
struct Pipe {
  Descriptor readEnd = {};
  Descriptor writeEnd = {};

  /// Failing is a fault that names `action`: without a pipe there is none.
  static Pipe create(std::string_view action = "make a pipe");

  /// One descriptor for both ends: its owner neither meets a broken pipe nor an end of what is written, whatever
  /// becomes of these. None, with errno set, when that fails.
  Descriptor bothEnds() const;

  /// Lets it hold as much as the system allows: a mebibyte as a rule, less for a user with many large pipes.
  void grow() const;
};

}  // namespace tarnwell::system
