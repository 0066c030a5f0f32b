#include "scenarios/Tarnwell.h"

#include <algorithm>
#include <utility>

#include "kit/control/Window.h"
#include "kit/controls/choices/TabBar.h"

namespace tarnwell::scenarios {
namespace {

bool isOfUpdaterOrLoginItem(const std::string& line) {
  return line.starts_with("updater: ") || line.starts_with("login item: ");
}

}  // namespace

Tarnwell::Tarnwell() : RunningApplication(hostSystem->platform()) {
  windowChanges_ = application().windows().observe([this](const kit::WindowList& changed) {
    auto& identifiers = windowLists_.emplace_back();
    for (const kit::Window* window : changed.all()) {
      identifiers.push_back(window->identifier());
    }
  });
  install();
  system().launch(application());
}

bool Tarnwell::settingsAreOpen() const { return settingsWindow() != nullptr && hostSystem->isOnScreen(settings()); }

std::vector<std::string> Tarnwell::tabs() const {
  std::vector<std::string> titles;
  std::ranges::transform(dynamic_cast<kit::TabBar&>(control("Tabs")).items(), std::back_inserter(titles),
                         &kit::TabBar::Item::title);
  return titles;
}

std::string Tarnwell::chosenTab() const {
  const auto& bar = dynamic_cast<kit::TabBar&>(control("Tabs"));
  return bar.items().at(static_cast<std::size_t>(bar.selectedIndex())).title;
}

void Tarnwell::chooseTab(int index) {
  driver_->chooseTab(dynamic_cast<kit::TabBar&>(control("Tabs")), index);
  system().settle();
}

void Tarnwell::setCanCheckForUpdates(bool canCheck) {
  application().turn().perform([this, canCheck] { system().updater().setCanCheckForUpdates(canCheck); });
}

std::vector<std::string> Tarnwell::asked() {
  std::vector<std::string> lines;
  const auto& journal = system().journal();
  std::copy_if(journal.begin() + static_cast<std::ptrdiff_t>(std::exchange(seen_, journal.size())), journal.end(),
               std::back_inserter(lines), isOfUpdaterOrLoginItem);
  return lines;
}

std::vector<std::vector<std::string>> Tarnwell::windowLists() { return std::exchange(windowLists_, {}); }

}  // namespace tarnwell::scenarios
