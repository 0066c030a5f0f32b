#include "view/tree/MenuItemNode.h"

namespace tarnwell::view {

void MenuItemNode::apply() {
  if (!item_) {
    item_ = makeItem();
  }
  updateItem(*item_);
}

}  // namespace tarnwell::view
