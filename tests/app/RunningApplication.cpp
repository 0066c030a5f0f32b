#include "app/RunningApplication.h"

#include <stdexcept>
#include <utility>

#include "dockscreen/CommandRunnerKey.h"
#include "kit/controls/Control.h"
#include "kit/controls/TabBar.h"
#include "view/tree/Dump.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::app {
namespace {

bool isMilestone(const std::string& line) {
  for (const char* start : {"window ", "activate", "terminate", "about panel", "open ", "main menu", "status item",
                            "updater", "login item"}) {
    if (line.rfind(start, 0) == 0) {
      return true;
    }
  }
  return false;
}

template <class Found>
Found found(Found candidate, const std::string& what) {
  if (!candidate) {
    throw std::invalid_argument("there is no " + what);
  }
  return candidate;
}

}  // namespace

RunningApplication::RunningApplication() : application_(kit::Application::create(platform_)) {
  const auto environment =
      view::EnvironmentValues()
          .with<dockscreen::CommandRunnerKey>(&runner_)
          .with<view::NumberFormatKey>(platform_.numberFormat())
          .with<view::OpenUrlKey>([this](const std::string& address) { platform_.openUrl(address); });
  scenes_ = std::make_unique<view::SceneRunner>(*application_, environment);
}

RunningApplication::~RunningApplication() = default;

RunningApplication& RunningApplication::install() {
  scenes_->install(tarnwellApp_.body());
  platform_.launch(*application_, {.eventID = kit::fourCharCode("oapp")});
  return *this;
}

RunningApplication& RunningApplication::start() {
  install();
  settle();
  return *this;
}

bool RunningApplication::pressCommand(const std::string& key) {
  bool answered = false;
  application_->turn().perform([&] {
    answered =
        application_->performKeyEquivalent({.charactersIgnoringModifiers = key, .modifierFlags = kit::commandFlag});
  });
  settle();
  return answered;
}

void RunningApplication::choose(const std::string& menu, const std::string& title) {
  application_->choose(entry(menu, title));
  settle();
}

void RunningApplication::chooseFromExtra(const std::string& title) {
  platform_.setMenuScript([title](host_headless::OpenMenu& menu) { menu.choose(title); });
  platform_.statusItems().at(0)->mouseUp(kit::Event::Type::leftMouseUp);
  settle();
}

std::shared_ptr<kit::MenuItem> RunningApplication::entry(const std::string& menu, const std::string& title) {
  for (const auto& top : application_->mainMenu().items()) {
    for (const auto& item : top->submenu()->items()) {
      if (top->title() == menu && item->title() == title) {
        return item;
      }
    }
  }
  throw std::invalid_argument("there is no entry " + menu + " > " + title);
}

void RunningApplication::chooseTab(int index) {
  dynamic_cast<kit::TabBar&>(control("Tabs")).choose(index);
  settle();
}

std::vector<std::string> RunningApplication::milestones() {
  std::vector<std::string> lines;
  for (const std::string& line : platform_.journal().lines()) {
    if (isMilestone(line)) {
      lines.push_back(line);
    }
  }
  return lines;
}

std::vector<std::string> RunningApplication::newMilestones() {
  std::vector<std::string> lines = milestones();
  lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(seen_));
  seen_ += lines.size();
  return lines;
}

std::string RunningApplication::mainMenuPicture() { return pictureOf(application_->mainMenu()); }

std::string RunningApplication::extraPicture() { return pictureOf(*platform_.statusItems().at(0)->menu()); }

std::string RunningApplication::settingsPicture() { return view::dump(scenes_->settingsWindow()->tree().root()); }

bool RunningApplication::settingsAreOpen() const {
  return scenes_->settingsWindow() != nullptr && scenes_->settingsWindow()->window().isVisible();
}

kit::Control& RunningApplication::control(const std::string& name) {
  const auto controls = found(scenes_->settingsWindow(), "settings window")->tree().controls();
  // Backwards: a row's label stands before the control that is named for it.
  for (auto it = controls.rbegin(); it != controls.rend(); ++it) {
    if ((*it)->accessibleName() == name) {
      return **it;
    }
  }
  throw std::invalid_argument("nothing is called " + name);
}

std::vector<std::string> RunningApplication::reads() { return std::exchange(runner_.captured, {}); }

std::string RunningApplication::pictureOf(const kit::Menu& menu, const std::string& indentation) {
  std::string picture;
  for (const auto& item : menu.items()) {
    const auto& equivalent = item->keyEquivalent();
    const bool withOption = (equivalent.modifierFlags & kit::optionFlag) != 0;
    picture += indentation + (item->isSeparator() ? "-" : item->title());
    picture += equivalent.key.empty() ? "" : (withOption ? "  option-command-" : "  command-") + equivalent.key;
    const bool isEntry = !item->isSeparator() && item->submenu() == nullptr;
    picture += isEntry && !application_->canChoose(*item) ? "  (disabled)\n" : "\n";
    picture += item->submenu() == nullptr ? "" : pictureOf(*item->submenu(), indentation + "  ");
  }
  return picture;
}

}  // namespace tarnwell::app
