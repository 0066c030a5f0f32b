#pragma once

#include <optional>
#include <span>
#include <string>

namespace tarnwell::commandline {

/// What is installed, as people read it.
struct Product {
  std::string program = {};
  std::string version = {};
  std::string summary = {};
};

/// Does what the arguments, without the program's name, ask for, prints what there is to print, and gives the status to
/// exit with. Nothing where there is no command: the window is wanted, with the same arguments.
///
/// Command lines that it runs find the stand-ins of the program first. Once in a process that has one thread.
std::optional<int> run(const Product& product, std::span<const char* const> arguments);

}  // namespace tarnwell::commandline
