#include "scenarios/DockTab.h"

#include <utility>

#include "app/NamedControl.h"
#include "dockscreen/CommandRunnerKey.h"
#include "dockscreen/ContentView.h"
#include "kit/control/Control.h"
#include "kit/controls/choices/PopUpButton.h"
#include "kit/controls/ranges/Slider.h"
#include "kit/controls/ranges/Stepper.h"
#include "kit/controls/text/TextField.h"

namespace tarnwell::scenarios {

DockTab::DockTab(const DockTabOptions& options) : driver_(makeDriver()) {
  const auto environment =
      view::EnvironmentValues()
          .with<dockscreen::CommandRunnerKey>(&runner_)
          .with<view::NumberFormatKey>(std::make_shared<host_headless::PointNumberFormat>(options.format))
          .with<view::SystemVersionKey>(options.version)
          .with<view::OpenUrlKey>([this](const std::string& address) { opened_.push_back(address); })
          .with<view::ProductKey>({.webHost = "tarnwell.example"});
  const view::View content =
      view::View(dockscreen::ContentView{}).frame({.width = 600}).frame({.maxHeight = 700}).fixedSize();
  window_ = std::make_unique<view::HostedWindow>(
      turn_, driver_->host(),
      view::HostedWindow::Content{.identifier = "dock", .title = "Dock", .view = content, .environment = environment});
}

DockTab::~DockTab() = default;

DockTab& DockTab::holding(const std::string& key, const std::string& printed) {
  runner_.answers["defaults read com.apple.dock " + key] = printed + "\n";
  return *this;
}

DockTab& DockTab::holdingAfter(const fixtures::Commands& writes) {
  for (const auto& [key, printed] : fixtures::outcomeOf(writes)) {
    holding(key, printed);
  }
  return *this;
}

bool DockTab::has(const std::string& name) const { return app::hasControlNamed(name, window_->tree()); }

void DockTab::type(const std::string& name, const std::string& text) {
  driver_->type(find<kit::TextField>(name), text);
}

void DockTab::enter(const std::string& name, const std::string& text) {
  type(name, text);
  pressKey(name, Key::tab);
}

void DockTab::choose(const std::string& name, int index) { driver_->choose(find<kit::PopUpButton>(name), index); }

void DockTab::nudge(const std::string& name, int steps) { driver_->nudge(find<kit::Slider>(name), steps); }

void DockTab::stepUp(const std::string& name) { driver_->stepUp(find<kit::Stepper>(name)); }

void DockTab::stepDown(const std::string& name) { driver_->stepDown(find<kit::Stepper>(name)); }

void DockTab::dragTo(const std::string& name, double place) { driver_->drag(find<kit::Slider>(name), place); }

std::vector<std::string> DockTab::writes() { return std::exchange(runner_.detached, {}); }

std::vector<std::string> DockTab::reads() { return std::exchange(runner_.captured, {}); }

kit::Control& DockTab::control(const std::string& name) const { return app::controlNamed(name, window_->tree()); }

}  // namespace tarnwell::scenarios
