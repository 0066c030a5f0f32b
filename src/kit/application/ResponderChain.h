#pragma once

#include <memory>
#include <vector>

#include "kit/application/Menu.h"
#include "kit/application/WindowList.h"
#include "kit/turn/Turn.h"

namespace tarnwell::kit {

/// Who is given keys and actions. What it is made with is borrowed.
class ResponderChain {
 public:
  ResponderChain(Turn& turn, const WindowList& windows, const Menu& mainMenu, Object& application)
      : turn_(turn), windows_(windows), mainMenu_(mainMenu), application_(application) {}

  // Keys.

  /// The entry that a key chooses: of the menu that opened last or of the main menu, each in order. Null without one.
  std::shared_ptr<MenuItem> itemMatching(const KeyEvent& event) const;
  /// Where keys that no focused control wants are matched: the entries of menus, then the key window. False for a key
  /// that means nothing.
  bool performKeyEquivalent(const KeyEvent& event);

  /// A menu that is not the main one opens: its entries are made, unless it is open already, and its keys come first.
  /// It must live until it closes; those close first that opened last.
  void menuOpens(Menu& menu);
  void menuCloses() { openMenus_.pop_back(); }

  /// For a host that shows menus itself: opens one and runs `show` as a nested loop, which ends when it has closed.
  void trackMenu(Menu& menu, const Action& show);

  // Actions.

  /// To `target` or, where that is null, to the first that responds: the key window, its focused control before it, and
  /// the application. False when none did.
  bool sendAction(const Selector& action, const std::shared_ptr<Object>& target, Object* sender);

  /// Whether choosing the entry would do anything.
  bool canChoose(const MenuItem& item) const;
  void choose(const std::shared_ptr<MenuItem>& item);

 private:
  bool giveToKeyWindow(const KeyEvent& event);
  Object* responderFor(const Selector& action) const;

  Turn& turn_;
  const WindowList& windows_;
  const Menu& mainMenu_;
  Object& application_;
  std::vector<Menu*> openMenus_;
};

}  // namespace tarnwell::kit
