#pragma once

#include <memory>
#include <vector>

#include "kit/application/WindowList.h"
#include "kit/menus/Menu.h"
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

  // Menus. Where the platform opens them by itself, in a loop of its own, the host tells.

  /// The entries of a menu are wanted, shown or not: it makes them, as an event. One that is open keeps its entries.
  void menuNeedsUpdate(Menu& menu);

  /// A menu that was updated is on the screen, and its keys come before those of menus that opened earlier; it must
  /// live until it closes. The main menu needs not be told of.
  void menuOpens(Menu& menu) { openMenus_.push_back(&menu); }
  void menuCloses(Menu& menu);

  /// For a host that shows menus itself: does all of this around `show`, a nested loop which ends when the menu has
  /// closed.
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
