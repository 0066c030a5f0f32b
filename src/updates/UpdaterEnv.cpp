#include "updates/UpdaterEnv.h"

#include <utility>

#include "kit/application/Application.h"
#include "kit/application/Platform.h"

namespace tarnwell::updates {
UpdaterEnv::UpdaterEnv()
    : updaterController_(kit::Application::shared().platform().makeUpdaterController(
          kit::Application::shared(),
          {.startingUpdater = true, .updaterDelegate = nullptr, .userDriverDelegate = nullptr})) {}

UpdaterEnv::~UpdaterEnv() = default;

void UpdaterEnv::setUpdaterController(std::unique_ptr<kit::UpdaterController> controller) {
  kit::Turn& turn = kit::Application::shared().turn();
  turn.perform([&] {
    objectWillChange();
    turn.releaseLater(std::exchange(updaterController_, std::move(controller)));
  });
}

}  // namespace tarnwell::updates
