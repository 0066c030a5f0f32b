#include "statusmenu/AppDelegate.h"

#include <algorithm>
#include <array>

#include "diagnostics/Console.h"
#include "diagnostics/Fault.h"
#include "kit/application/Menu.h"
#include "kit/application/Platform.h"
#include "kit/application/SettingsShortcut.h"
#include "kit/turn/ClassRegistry.h"

namespace tarnwell::statusmenu {
namespace {

const kit::ClassRegistry::Entry entry("AppDelegate", [](kit::Application& application) {
  return std::make_shared<AppDelegate>(application);
});

constexpr std::array selectors = {
    "applicationDidFinishLaunching:", "handleClick:", "itemClicked:", "openSettingsInSonoma"};

std::shared_ptr<kit::Menu> makeMenu() {
  auto menu = std::make_shared<kit::Menu>();
  menu->addItem(kit::MenuItem::create("Toggle Dock Autohide", "itemClicked:", ""));
  menu->addItem(kit::MenuItem::create("Toggle Scroll to Exposé", "itemClicked:", ""));
  menu->addItem(kit::MenuItem::separatorItem());
  menu->addItem(kit::MenuItem::create("Settings...", "openSettingsInSonoma", ""));
  menu->addItem(kit::MenuItem::separatorItem());
  menu->addItem(kit::MenuItem::create("Quit", "terminate:", "q"));
  return menu;
}

}  // namespace

void AppDelegate::applicationDidFinishLaunching() {
  statusItem = std::make_unique<kit::StatusItem>(application_, kit::StatusItem::variableLength, "");
  if (const auto& button = statusItem->button()) {
    button->setImage({.symbol = "star"});
    button->setAction("handleClick:");
    button->setTarget(shared_from_this());
    button->sendActionOn(maskOf(kit::Event::Type::leftMouseUp) | maskOf(kit::Event::Type::rightMouseUp));
  }
}

void AppDelegate::handleClick() {
  const kit::Event* event = application_.events().current();
  if (event == nullptr) {
    diagnostics::fault("the status item was clicked without a current event");
  }
  if (event->type == kit::Event::Type::rightMouseUp) {
    diagnostics::printLine("R");
    showMenu();
  } else {
    diagnostics::printLine("L");
  }
}

void AppDelegate::showMenu() {
  const auto menu = makeMenu();
  if (!statusItem) {
    diagnostics::fault("there is no status item to show a menu at");
  }
  statusItem->setMenu(menu);
  statusItem->performClick();
  // An attached menu would open at the next click by itself.
  statusItem->setMenu(nullptr);
}

void AppDelegate::itemClicked(const kit::MenuItem& item) { diagnostics::printLine(item.title() + " clicked"); }

void AppDelegate::openSettingsInSonoma() {
  application_.platform().activate();
  kit::postSettingsShortcut(application_);
}

bool AppDelegate::respondsToSelector(const kit::Selector& selector) const {
  return std::ranges::find(selectors, selector) != selectors.end();
}

void AppDelegate::perform(const kit::Selector& selector, kit::Object* sender) {
  if (selector == "applicationDidFinishLaunching:") {
    applicationDidFinishLaunching();
  } else if (selector == "handleClick:") {
    handleClick();
  } else if (selector == "openSettingsInSonoma") {
    openSettingsInSonoma();
  } else if (const auto* item = dynamic_cast<kit::MenuItem*>(sender); item != nullptr && selector == "itemClicked:") {
    itemClicked(*item);
  }
}

}  // namespace tarnwell::statusmenu
