#pragma once

#include "updater/schedule/UpdaterConfiguration.h"
#include "updater/transfer/CurlTransport.h"

namespace tarnwell::updater {

/// Where updates come from, and how they are fetched.
struct UpdateSource {
  UpdaterConfiguration configuration = {};
  CurlTransport::Settings transport = {};
};

/// Of this program. Each program brings its own definition: the one that ships has what was compiled in and nothing
/// else, the one that tests drive is told in its environment.
UpdateSource updateSource();

}  // namespace tarnwell::updater
