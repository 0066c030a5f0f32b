#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace tarnwell::system {

/// How a process stands, as the kernel says in one line.
struct ProcessStanding {
  bool isEnding = true;  // or gone
  pid_t parent = 0;
};

/// What /proc/NUMBER/stat says; ending where that is no such line. A program's name can hold anything, brackets and
/// line feeds included.
ProcessStanding standingIn(const std::string& line);

/// What /proc/NUMBER/environ says, "NAME=value" each.
std::vector<std::string> variablesIn(const std::string& text);

}  // namespace tarnwell::system
