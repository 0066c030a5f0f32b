#include "updates/UpdaterEnv.h"

#include "kit/Application.h"
#include "kit/Platform.h"

namespace tarnwell::updates {

UpdaterEnv::UpdaterEnv() : updaterController_(kit::Application::shared()->platform().makeUpdaterController()) {}

UpdaterEnv::~UpdaterEnv() = default;

}  // namespace tarnwell::updates
