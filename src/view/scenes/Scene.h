#pragma once

#include <string>
#include <variant>
#include <vector>

#include "view/layout/Spacer.h"
#include "view/values/View.h"

namespace tarnwell::view {

/// The groups of the standard main menu that commands can replace.
enum class CommandGroupPlacement { appInfo, appSettings, newItem, toolbar, help };

/// What stands in the main menu instead of a standard group.
struct CommandGroup {
  CommandGroupPlacement replacing = CommandGroupPlacement::appInfo;
  View content = EmptyView{};
};

/// Windows that share an identifier. One of the first group is opened at launch.
struct WindowGroup {
  std::string id = {};
  View content = EmptyView{};
  std::vector<CommandGroup> commands = {};
};

/// An icon in the status bar whose click shows the content as a menu.
struct MenuBarExtra {
  std::string title = {};
  std::string systemImage = {};
  View content = EmptyView{};
};

/// The one settings window.
struct Settings {
  View content = EmptyView{};
};

using Scene = std::variant<WindowGroup, MenuBarExtra, Settings>;

}  // namespace tarnwell::view
