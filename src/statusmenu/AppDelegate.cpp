#include "statusmenu/AppDelegate.h"

#include "diagnostics/Console.h"
#include "diagnostics/Fault.h"
#include "kit/application/Platform.h"
#include "kit/application/SettingsShortcut.h"
#include "kit/menus/Menu.h"
#include "kit/turn/ClassRegistry.h"

namespace tarnwell::statusmenu {
namespace {

const kit::ClassRegistry::Entry entry("AppDelegate", [](kit::Application& application) {
  return std::make_shared<AppDelegate>(application);
});

constexpr const char* handleClickSelector = "handleClick:";
constexpr const char* itemClickedSelector = "itemClicked:";
constexpr const char* openSettingsSelector = "openSettingsInSonoma";

std::shared_ptr<kit::Menu> makeMenu() {
  auto menu = std::make_shared<kit::Menu>();
  menu->addItem(kit::MenuItem::create("Toggle Dock Autohide", itemClickedSelector, ""));
  menu->addItem(kit::MenuItem::create("Toggle Scroll to Exposé", itemClickedSelector, ""));
  menu->addItem(kit::MenuItem::separatorItem());
  menu->addItem(kit::MenuItem::create("Settings...", openSettingsSelector, ""));
  menu->addItem(kit::MenuItem::separatorItem());
  menu->addItem(kit::MenuItem::create("Quit", kit::selectors::terminate, "q"));
  return menu;
}

}  // namespace

AppDelegate::AppDelegate(kit::Application& application) : application_(application) {
  respondTo(kit::selectors::applicationDidFinishLaunching,
            [this](auto* /*sender*/) { applicationDidFinishLaunching(); });
  respondTo(handleClickSelector, [this](auto* /*sender*/) { handleClick(); });
  respondTo(openSettingsSelector, [this](auto* /*sender*/) { openSettingsInSonoma(); });
  respondTo(itemClickedSelector, [this](auto* sender) {
    if (const auto* item = dynamic_cast<kit::MenuItem*>(sender)) {
      itemClicked(*item);
    }
  });
}

void AppDelegate::applicationDidFinishLaunching() {
  statusItem = std::make_unique<kit::StatusItem>(application_, kit::StatusItem::variableLength, "");
  if (const auto& button = statusItem->button()) {
    button->setImage({.symbol = "star"});
    button->setAction(handleClickSelector);
    button->setTarget(shared_from_this());
    button->sendActionOn(maskOf(kit::Event::Type::leftMouseUp) | maskOf(kit::Event::Type::rightMouseUp));
  }
}

void AppDelegate::handleClick() {
  const kit::Event* event = application_.events().currentEvent();
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
  application_.platform().activateIgnoringOtherApps();
  kit::postSettingsShortcut(application_);
}

}  // namespace tarnwell::statusmenu
