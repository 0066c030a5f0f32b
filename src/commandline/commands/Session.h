#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "commandline/dock/Shell.h"
#include "commandline/words/Screen.h"

namespace tarnwell::commandline {

/// What the program exits with.
enum class Status {
  done = 0,          // or there was nothing to do
  no = 1,            // profile and Dock differ, there is no value
  refused = 2,       // what was typed or what a profile says is wrong; nothing was touched
  storeFailure = 3,  // the settings could not be read or written
  noDock = 4,        // they are written, but the Dock has not come back
};

/// What commands work with.
struct Session {
  std::string program = {};
  /// Major, minor, patch; of no meaning to commands that need no system.
  std::array<int, 3> system = {};
  Shell& shell;
  Screen& screen;

  /// Whether this system knows the setting.
  bool knows(std::size_t setting) const;

  Status fail(Status status, const std::string& message) const {
    screen.say(message);
    return status;
  }
};

/// "single-app has no effect from macOS 15 on"
std::string noEffectText(std::size_t setting);

}  // namespace tarnwell::commandline
