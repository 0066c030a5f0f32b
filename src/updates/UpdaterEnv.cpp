#include "updates/UpdaterEnv.h"

#include "diagnostics/Fault.h"
#include "kit/Application.h"
#include "kit/Platform.h"

namespace tarnwell::updates {
namespace {

kit::Platform& platform() {
  kit::Application* application = kit::Application::shared();
  if (application == nullptr) {
    diagnostics::fault("an updater was asked for without an application");
  }
  return application->platform();
}

}  // namespace

UpdaterEnv::UpdaterEnv() : updaterController_(platform().makeUpdaterController()) {}

UpdaterEnv::~UpdaterEnv() = default;

}  // namespace tarnwell::updates
