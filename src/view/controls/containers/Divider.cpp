#include "view/controls/containers/Divider.h"

#include "diagnostics/Fault.h"
#include "view/tree/MenuItemNode.h"
#include "view/tree/TreeContext.h"

namespace tarnwell::view {
namespace {

class DividerNode final : public MenuItemNode {
 public:
  using MenuItemNode::MenuItemNode;

 protected:
  std::shared_ptr<kit::MenuItem> makeItem() override { return kit::MenuItem::separatorItem(); }
  void updateItem(kit::MenuItem& /*item*/) override {}
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const Divider& /*divider*/, const Place& place) {
  if (!place.tree.isMenu()) {
    diagnostics::fault("a divider stands outside of a menu");
  }
  return std::make_shared<DividerNode>(place);
}

}  // namespace tarnwell::view
