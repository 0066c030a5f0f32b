#include "view/scenes/MainMenu.h"

#include <algorithm>
#include <utility>

#include "kit/application/Platform.h"
#include "view/controls/buttons/SettingsLink.h"

namespace tarnwell::view {
namespace {

namespace selectors = kit::selectors;

std::shared_ptr<kit::MenuItem> entry(std::string title, kit::Selector action, std::string key = {}) {
  return kit::MenuItem::create(std::move(title), std::move(action), std::move(key));
}

std::shared_ptr<kit::MenuItem> platformEntry(std::string title, kit::Selector action, std::string key = {},
                                             unsigned modifierFlags = kit::commandFlag) {
  return kit::MenuItem::platformItem(std::move(title), std::move(action),
                                     {.key = std::move(key), .modifierFlags = modifierFlags});
}

std::shared_ptr<kit::MenuItem> settingsEntry(kit::Action open) {
  auto item = entry("Settings…", {}, ",");
  item->setHandler(std::move(open));
  return item;
}

}  // namespace

MainMenu::MainMenu(kit::Application& application, std::vector<CommandGroup> commands, EnvironmentValues environment)
    : application_(application), commands_(std::move(commands)), environment_(std::move(environment)) {
  addApplicationMenu();
  addFileMenu();
  addEditMenu();
  addReplaceable(addMenu("View"), CommandGroupPlacement::toolbar, {});
  addItems(addMenu(windowTitle), {platformEntry("Minimize", selectors::performMiniaturize, "m")});
  addReplaceable(addMenu(helpTitle), CommandGroupPlacement::help, {});
  application_.platform().showMainMenu(application_);
}

MainMenu::~MainMenu() = default;

MainMenu::TopMenu& MainMenu::addMenu(const std::string& title) {
  auto top = std::make_unique<TopMenu>();
  top->menu = std::make_shared<kit::Menu>(title);
  application_.mainMenu().addItem(kit::MenuItem::withSubmenu(title, top->menu));
  menus_.push_back(std::move(top));
  return *menus_.back();
}

void MainMenu::addItems(TopMenu& top, Items items) {
  Group group;
  group.menu->setItems(std::move(items));
  top.groups.push_back(std::move(group));
  join(top);
}

void MainMenu::addReplaceable(TopMenu& top, CommandGroupPlacement placement, Items standard) {
  const auto command = std::ranges::find(commands_, placement, &CommandGroup::replacing);
  if (command == commands_.end()) {
    addItems(top, std::move(standard));
    return;
  }
  Group group;
  group.changes = group.menu->observe([&top] { join(top); });
  group.tree = std::make_unique<MountedTree>(application_.turn(), *group.menu);
  MountedTree& tree = *group.tree;
  top.groups.push_back(std::move(group));
  application_.turn().perform([&] { tree.mount(command->content, environment_); });
}

void MainMenu::join(TopMenu& top) {
  Items joined;
  for (const Group& group : top.groups) {
    if (!joined.empty() && !group.menu->items().empty()) {
      joined.push_back(group.separator);
    }
    joined.insert(joined.end(), group.menu->items().begin(), group.menu->items().end());
  }
  top.menu->setItems(std::move(joined));
}

void MainMenu::addApplicationMenu() {
  const std::string& name = application_.platform().product().name;
  TopMenu& top = addMenu(name);
  addReplaceable(top, CommandGroupPlacement::appInfo,
                 {entry("About " + name, selectors::orderFrontStandardAboutPanel)});
  addReplaceable(top, CommandGroupPlacement::appSettings, {settingsEntry(environment_.get<OpenSettingsSceneKey>())});
  if (application_.platform().hidesApplications()) {
    addItems(top, {kit::MenuItem::withSubmenu(servicesTitle, std::make_shared<kit::Menu>(servicesTitle))});
    addItems(top,
             {platformEntry("Hide " + name, selectors::hide, "h"),
              platformEntry("Hide Others", selectors::hideOtherApplications, "h", kit::commandFlag | kit::optionFlag),
              platformEntry("Show All", selectors::unhideAllApplications)});
  }
  addItems(top, {entry("Quit " + name, selectors::terminate, "q")});
}

void MainMenu::addFileMenu() {
  TopMenu& top = addMenu("File");
  addReplaceable(top, CommandGroupPlacement::newItem, {entry("New Window", selectors::newWindow, "n")});
  addItems(top, {platformEntry("Close", selectors::performClose, "w")});
}

void MainMenu::addEditMenu() {
  TopMenu& top = addMenu("Edit");
  addItems(top, {platformEntry("Undo", selectors::undo, "z"),
                 platformEntry("Redo", selectors::redo, "Z", kit::commandFlag | kit::shiftFlag)});
  addItems(top, {platformEntry("Cut", selectors::cut, "x"), platformEntry("Copy", selectors::copy, "c"),
                 platformEntry("Paste", selectors::paste, "v"), platformEntry("Delete", selectors::deleteSelection),
                 platformEntry("Select All", selectors::selectAll, "a")});
}

}  // namespace tarnwell::view
