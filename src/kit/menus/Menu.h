#pragma once

#include <memory>
#include <string>
#include <vector>

#include "kit/menus/MenuItem.h"
#include "kit/turn/Action.h"
#include "kit/turn/Observers.h"

namespace tarnwell::kit {

/// A list of entries, shown when it is opened.
class Menu final {
 public:
  explicit Menu(std::string title = {}) : title_(std::move(title)) {}
  Menu(const Menu&) = delete;
  Menu& operator=(const Menu&) = delete;
  ~Menu();

  const std::string& title() const { return title_; }

  const std::vector<std::shared_ptr<MenuItem>>& items() const { return items_; }
  void addItem(std::shared_ptr<MenuItem> item);
  /// The same entries in the same order change nothing.
  void setItems(std::vector<std::shared_ptr<MenuItem>> items);

  /// Whose entry answers `event`: the first in order, submenus included, that `mayChoose` lets pass. Null if none.
  template <class MayChoose>
  std::shared_ptr<MenuItem> itemMatching(const KeyEvent& event, const MayChoose& mayChoose) const {
    for (const auto& item : items_) {
      if (item->submenu()) {
        if (auto found = item->submenu()->itemMatching(event, mayChoose)) {
          return found;
        }
      } else if (item->matches(event) && mayChoose(*item)) {
        return item;
      }
    }
    return nullptr;
  }

  /// Run before the menu is shown, so that what it shows is made then, as an event (`ResponderChain::menuNeedsUpdate`).
  /// One at a time.
  void setOpenAction(Action willOpen) { willOpen_ = std::move(willOpen); }
  void willOpen() const;

  /// Hears of new entries and of changed ones.
  [[nodiscard]] Subscription observe(Action changed) { return observers_.add(std::move(changed)); }

 private:
  void adopt(const std::shared_ptr<MenuItem>& item);
  void releaseItems();

  std::string title_;
  std::vector<std::shared_ptr<MenuItem>> items_;
  Action willOpen_;
  Observers<> observers_;
};

}  // namespace tarnwell::kit
