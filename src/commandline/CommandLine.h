#pragma once

#include <span>
#include <string>
#include <variant>

#include "system/base/Result.h"

namespace tarnwell::commandline {

/// What is installed, as people read it.
struct Product {
  std::string program = {};
  std::string version = {};
  std::string summary = {};
};

/// There is no command: the window is wanted, with the same arguments.
struct ShowWindow {};

/// Something to print on standard output.
struct Print {
  std::string text = {};
};

/// What the user asked for with the program's arguments; a failure has a line on how to ask.
using Request = std::variant<ShowWindow, Print, system::Failure>;

/// Of the arguments without the program's name.
Request parse(const Product& product, std::span<const char* const> arguments);

}  // namespace tarnwell::commandline
