#pragma once

#include <filesystem>

#include "kit/ports/SystemVersion.h"
#include "system/base/Result.h"

namespace tarnwell::host_linux {

/// What is settled before anything is shown.
struct ProcessSetup {
  kit::SystemVersion version = {};
  /// What users start.
  std::filesystem::path executable = {};

  /// Settles it for this process and the commands that it runs, which find the stand-ins of `program` before all else.
  /// Once, while the process has one thread. What is wrong is a sentence for people; no command may be run then.
  static system::Result<ProcessSetup> prepare(const std::string& program);
};

}  // namespace tarnwell::host_linux
