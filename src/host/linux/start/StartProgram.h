#pragma once

#include <string>
#include <vector>

#include "system/processes/Process.h"

namespace tarnwell::host_linux {

/// Starts the program `words.front()`, which is looked for on the PATH, with the rest as its arguments, and returns
/// at once. It has the user's own environment (UserEnvironment.h), reads from the null device, prints
/// where this process prints, has no other descriptor of it, and default signals; a key that interrupts this process in
/// its terminal does not reach it. The caller sees to its end.
system::Result<system::Process> startProgram(const std::vector<std::string>& words);

}  // namespace tarnwell::host_linux
