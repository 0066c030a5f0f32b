#pragma once

#include <functional>
#include <vector>

#include "kit/controls/Control.h"

namespace tarnwell::kit {

/// What a pop-up button's peer does beside.
class MenuPeer {
 public:
  virtual ~MenuPeer() = default;

  virtual void openMenu() = 0;
};

/// A button that shows the chosen one of several items and offers the others in a menu.
class PopUpButton final : public Control {
 public:
  struct Item {
    std::string title = {};
    std::string symbol = {};  ///< Stands behind the title; none where empty.
    friend bool operator==(const Item&, const Item&) = default;
  };
  using ChooseAction = std::function<void(int)>;

  const std::vector<Item>& items() const { return items_; }
  void setItems(std::vector<Item> items);

  /// -1 while nothing is chosen.
  int selectedIndex() const { return selected_; }
  /// An index that is not an item's is a fault.
  void setSelectedIndex(int index);

  void setAction(ChooseAction action) { action_ = std::move(action); }

  /// The user's doing. Choosing what is chosen already is no action.
  void choose(int index);

  std::unique_ptr<Peer> makePeer(Host& host, Peer& parent) override;
  bool takesFocus() const override { return true; }
  std::vector<AccessiblePart> accessibleParts() const override;

 protected:
  Accessible ownAccessible() const override;
  void act(const AccessibleRequest& request) override;
  std::vector<Aspect> aspects() const override { return {Aspect::title, Aspect::value}; }

 private:
  ChooseAction action_;
  std::vector<Item> items_;
  int selected_ = -1;
};

}  // namespace tarnwell::kit
