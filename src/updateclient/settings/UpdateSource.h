#pragma once

#include <filesystem>

#include "updateclient/settings/UpdaterConfiguration.h"

namespace tarnwell::updateclient {

/// Where updates come from.
struct UpdateSource {
  UpdaterConfiguration configuration = {};
  /// The engine's program; the one that lies beside this one where it is empty.
  std::filesystem::path engine = {};
};

/// Of this program. Each program brings its own definition: the one that ships has what was compiled in and nothing
/// else, the one that tests drive is told in its environment.
UpdateSource updateSource();

}  // namespace tarnwell::updateclient
