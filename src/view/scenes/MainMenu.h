#pragma once

#include <memory>
#include <string>
#include <vector>

#include "kit/application/Application.h"
#include "kit/menus/Menu.h"
#include "view/scenes/Scene.h"
#include "view/tree/MountedTree.h"
#include "view/values/EnvironmentValues.h"

namespace tarnwell::view {

/// Fills the application's main menu: the standard menus with their standard groups, some of them replaced by views.
class MainMenu {
 public:
  // Menus to which a platform may add entries of its own; the services stand in the application's menu, the first.
  static constexpr const char* servicesTitle = "Services";
  static constexpr const char* windowTitle = "Window";
  static constexpr const char* helpTitle = "Help";

  /// The application is borrowed and outlives the menu.
  MainMenu(kit::Application& application, std::vector<CommandGroup> commands, EnvironmentValues environment);
  MainMenu(const MainMenu&) = delete;
  MainMenu& operator=(const MainMenu&) = delete;
  ~MainMenu();

 private:
  struct Group {
    std::unique_ptr<kit::Menu> menu = std::make_unique<kit::Menu>();
    std::shared_ptr<kit::MenuItem> separator = kit::MenuItem::separatorItem();
    std::unique_ptr<MountedTree> tree = {};
    kit::Subscription changes = {};
  };
  struct TopMenu {
    std::shared_ptr<kit::Menu> menu = {};
    std::vector<Group> groups = {};
  };
  using Items = std::vector<std::shared_ptr<kit::MenuItem>>;

  TopMenu& addMenu(const std::string& title);
  void addItems(TopMenu& top, Items items);
  /// The commands' view for `placement` if there is one, else the standard entries.
  void addReplaceable(TopMenu& top, CommandGroupPlacement placement, Items standard);
  static void join(TopMenu& top);

  void addApplicationMenu();
  void addFileMenu();
  void addEditMenu();

  kit::Application& application_;
  const std::vector<CommandGroup> commands_;
  const EnvironmentValues environment_;
  std::vector<std::unique_ptr<TopMenu>> menus_;
};

}  // namespace tarnwell::view
