#include "scenarios/Tarnwell.h"

#include <algorithm>
#include <utility>

#include "dockscreen/CommandRunnerKey.h"
#include "host/headless/PointNumberFormat.h"
#include "kit/controls/TabBar.h"
#include "scenarios/NamedControl.h"

namespace tarnwell::scenarios {
namespace {

bool isOfUpdaterOrLoginItem(const std::string& line) {
  return line.starts_with("updater: ") || line.starts_with("login item: ");
}

}  // namespace

Tarnwell::Tarnwell()
    : system_(makeSystem()), driver_(makeDriver()), application_(kit::Application::create(system_->platform())) {
  const auto environment =
      view::EnvironmentValues()
          .with<dockscreen::CommandRunnerKey>(&runner_)
          .with<view::NumberFormatKey>(std::make_shared<host_headless::PointNumberFormat>())
          .with<view::OpenUrlKey>([this](const std::string& address) { opened_.push_back(address); });
  windowChanges_ = application_->observeWindows([this](const kit::Application& application) {
    auto& identifiers = windowLists_.emplace_back();
    for (const kit::Window* window : application.windows()) {
      identifiers.push_back(window->identifier());
    }
  });
  scenes_ = std::make_unique<view::SceneRunner>(*application_, environment);
  scenes_->install(tarnwell_.body());
  system_->launch(*application_);
}

Tarnwell::~Tarnwell() = default;

bool Tarnwell::settingsAreOpen() const {
  return scenes_->settingsWindow() != nullptr && system_->isOnScreen(settings());
}

kit::Control& Tarnwell::control(const std::string& name) const {
  return controlNamed(name, scenes_->settingsWindow()->tree());
}

bool Tarnwell::has(const std::string& name) const { return hasControlNamed(name, scenes_->settingsWindow()->tree()); }

std::vector<std::string> Tarnwell::tabs() const {
  std::vector<std::string> titles;
  std::ranges::transform(dynamic_cast<kit::TabBar&>(control("Tabs")).tabs(), std::back_inserter(titles),
                         &kit::TabBar::Tab::title);
  return titles;
}

std::string Tarnwell::chosenTab() const {
  const auto& bar = dynamic_cast<kit::TabBar&>(control("Tabs"));
  return bar.tabs().at(static_cast<std::size_t>(bar.selectedIndex())).title;
}

void Tarnwell::chooseTab(int index) {
  driver_->chooseTab(dynamic_cast<kit::TabBar&>(control("Tabs")), index);
  system_->settle();
}

void Tarnwell::setCanCheckForUpdates(bool canCheck) {
  application_->turn().perform([this, canCheck] { system_->updater().setCanCheckForUpdates(canCheck); });
}

std::vector<std::string> Tarnwell::reads() { return std::exchange(runner_.captured, {}); }

std::vector<std::string> Tarnwell::asked() {
  std::vector<std::string> lines;
  const auto& journal = system_->journal();
  std::copy_if(journal.begin() + static_cast<std::ptrdiff_t>(std::exchange(seen_, journal.size())), journal.end(),
               std::back_inserter(lines), isOfUpdaterOrLoginItem);
  return lines;
}

std::vector<std::string> Tarnwell::openedAddresses() { return std::exchange(opened_, {}); }

std::vector<std::vector<std::string>> Tarnwell::windowLists() { return std::exchange(windowLists_, {}); }

}  // namespace tarnwell::scenarios
