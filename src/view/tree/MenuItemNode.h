#pragma once

#include <memory>

#include "kit/menus/MenuItem.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::view {

/// A leaf that is an entry of a menu. Menus lay themselves out.
class MenuItemNode : public MountedNode {
 public:
  using MountedNode::MountedNode;

  std::shared_ptr<kit::MenuItem> menuItem() const final { return item_; }

 protected:
  virtual std::shared_ptr<kit::MenuItem> makeItem() = 0;
  virtual void updateItem(kit::MenuItem& item) = 0;

  void apply() final {
    if (!item_) {
      item_ = makeItem();
    }
    updateItem(*item_);
  }
  kit::Measurement layOut(kit::Proposal /*proposal*/) final { return {}; }
  void placeContent(const kit::Rect& /*frame*/) final {}

 private:
  std::shared_ptr<kit::MenuItem> item_;
};

}  // namespace tarnwell::view
