#pragma once

#include <sys/types.h>

#include <string>

namespace tarnwell::bench {

/// The least that starting a shell can cost: no pipe, no attributes, nothing remembered.
pid_t spawnPlainly(const std::string& commandLine);

/// A captured run as one writes it by hand: a pipe, a launch, a loop of reads, a wait.
std::string captureByHand(const std::string& commandLine);

/// The same through the C library's popen.
std::string captureByPopen(const std::string& commandLine);

}  // namespace tarnwell::bench
