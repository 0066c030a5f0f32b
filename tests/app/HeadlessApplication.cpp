#include "app/HeadlessApplication.h"

#include <stdexcept>

#include "kit/controls/choices/TabBar.h"
#include "view/Dump.h"
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

}  // namespace

HeadlessApplication& HeadlessApplication::install() {
  RunningApplication::install();
  platform().launch(application(), {.eventID = kit::openApplicationEvent});
  return *this;
}

HeadlessApplication& HeadlessApplication::start() {
  install();
  settle();
  return *this;
}

bool HeadlessApplication::pressCommand(const std::string& key) {
  bool answered = false;
  application().turn().perform([&] {
    answered = application().responders().performKeyEquivalent(
        {.charactersIgnoringModifiers = key, .modifierFlags = kit::commandFlag});
  });
  settle();
  return answered;
}

void HeadlessApplication::choose(const std::string& menu, const std::string& title) {
  application().responders().choose(entry(menu, title));
  settle();
}

void HeadlessApplication::chooseFromExtra(const std::string& title) {
  platform().setMenuScript([title](host_headless::OpenMenu& menu) { menu.choose(title); });
  platform().statusItems().at(0)->mouseUp(kit::Event::Type::leftMouseUp);
  settle();
}

std::shared_ptr<kit::MenuItem> HeadlessApplication::entry(const std::string& menu, const std::string& title) {
  for (const auto& top : application().mainMenu().items()) {
    for (const auto& item : top->submenu()->items()) {
      if (top->title() == menu && item->title() == title) {
        return item;
      }
    }
  }
  throw std::invalid_argument("there is no entry " + menu + " > " + title);
}

void HeadlessApplication::chooseTab(int index) {
  dynamic_cast<kit::TabBar&>(control("Tabs")).choose(index);
  settle();
}

std::vector<std::string> HeadlessApplication::milestones() {
  std::vector<std::string> lines;
  for (const std::string& line : platform().journal().lines()) {
    if (isMilestone(line)) {
      lines.push_back(line);
    }
  }
  return lines;
}

std::vector<std::string> HeadlessApplication::newMilestones() {
  std::vector<std::string> lines = milestones();
  lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(seen_));
  seen_ += lines.size();
  return lines;
}

std::string HeadlessApplication::mainMenuPicture() { return pictureOf(application().mainMenu()); }

std::string HeadlessApplication::extraPicture() { return pictureOf(*platform().statusItems().at(0)->menu()); }

std::string HeadlessApplication::settingsPicture() { return view::dump(settingsWindow()->tree().root()); }

bool HeadlessApplication::settingsAreOpen() const { return settingsWindow() != nullptr && settings().isVisible(); }

std::string HeadlessApplication::pictureOf(const kit::Menu& menu, const std::string& indentation) {
  std::string picture;
  for (const auto& item : menu.items()) {
    const auto& equivalent = item->keyEquivalent();
    const bool withOption = (equivalent.modifierFlags & kit::optionFlag) != 0;
    picture += indentation + (item->isSeparator() ? "-" : item->title());
    picture += equivalent.key.empty() ? "" : (withOption ? "  option-command-" : "  command-") + equivalent.key;
    const bool isEntry = !item->isSeparator() && item->submenu() == nullptr;
    picture += isEntry && !application().responders().canChoose(*item) ? "  (disabled)\n" : "\n";
    picture += item->submenu() == nullptr ? "" : pictureOf(*item->submenu(), indentation + "  ");
  }
  return picture;
}

}  // namespace tarnwell::app
