#include "app/RunningApplication.h"

#include <utility>

#include "app/NamedControl.h"

namespace tarnwell::app {

RunningApplication::RunningApplication(kit::Platform& platform)
    : composition_(std::make_unique<Composition>(platform, runner_)) {}

kit::Control& RunningApplication::control(const std::string& name) const {
  return controlNamed(name, settingsWindow()->tree());
}

bool RunningApplication::has(const std::string& name) const { return hasControlNamed(name, settingsWindow()->tree()); }

std::vector<std::string> RunningApplication::reads() { return std::exchange(runner_.captured, {}); }

}  // namespace tarnwell::app
