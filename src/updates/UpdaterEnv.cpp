#include "updates/UpdaterEnv.h"

#include <utility>

#include "diagnostics/Fault.h"
#include "kit/application/Application.h"
#include "kit/application/Platform.h"

namespace tarnwell::updates {
namespace {

kit::Application& application() {
  kit::Application* application = kit::Application::shared();
  if (application == nullptr) {
    diagnostics::fault("an updater was asked for without an application");
  }
  return *application;
}

}  // namespace

UpdaterEnv::UpdaterEnv()
    : updaterController_(application().platform().makeUpdaterController(
          application(), {.startingUpdater = true, .updaterDelegate = nullptr, .userDriverDelegate = nullptr})) {}

UpdaterEnv::~UpdaterEnv() = default;

void UpdaterEnv::setUpdaterController(std::unique_ptr<kit::UpdaterController> controller) {
  kit::Turn& turn = application().turn();
  turn.perform([&] {
    objectWillChange();
    turn.releaseLater(std::exchange(updaterController_, std::move(controller)));
  });
}

}  // namespace tarnwell::updates
