#pragma once

#include <functional>
#include <vector>

#include "kit/control/Control.h"

namespace tarnwell::kit {

/// What offers several items, one of them chosen.
class ChoiceControl : public Control {
 public:
  struct Item {
    std::string title = {};
    std::string symbol = {};  ///< Stands beside the title; none where empty.
    friend bool operator==(const Item&, const Item&) = default;
  };
  using ChooseAction = std::function<void(int)>;

  const std::vector<Item>& items() const { return items_; }
  /// Where the chosen one goes because there are fewer, the last is chosen.
  void setItems(std::vector<Item> items);

  /// -1 while nothing is chosen.
  int selectedIndex() const { return selected_; }
  /// An index that is not an item's is a fault.
  void setSelectedIndex(int index);

  void setAction(ChooseAction action) { action_ = std::move(action); }

  /// The user's doing. Choosing what is chosen already is no action.
  void choose(int index);

  bool takesFocus() const override { return true; }
  std::vector<AccessiblePart> accessibleParts() const override;

 protected:
  void act(const AccessibleRequest& request) override { choose(request.part); }
  std::vector<Aspect> aspects() const override { return {Aspect::title, Aspect::value}; }

 private:
  ChooseAction action_;
  std::vector<Item> items_;
  int selected_ = -1;
};

}  // namespace tarnwell::kit
