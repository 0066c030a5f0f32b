#pragma once

#include <string>
#include <variant>

#include "host/linux/LaunchArguments.h"
#include "kit/application/Product.h"
#include "system/Result.h"

namespace tarnwell::host_linux {

/// What the user asked for with the program's arguments.
struct CommandLine {
  /// Something to print on standard output instead of starting.
  struct Print {
    std::string text = {};
  };

  /// A start, a text to print, or what is wrong, with a line on how to do it right.
  using Parsed = std::variant<LaunchArguments, Print, system::Failure>;

  static Parsed parse(const kit::Product& product, int argc, const char* const* argv);
};

}  // namespace tarnwell::host_linux
