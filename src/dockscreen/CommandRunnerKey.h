#pragma once

#include "core/CommandRunner.h"

namespace tarnwell::dockscreen {

/// How views run command lines; the application sets it. Null outside of one.
struct CommandRunnerKey {
  using Value = core::CommandRunner*;
  static Value initial() { return nullptr; }
};

}  // namespace tarnwell::dockscreen
