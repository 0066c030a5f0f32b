#include "view/controls/PlainButton.h"

#include "view/tree/ControlNode.h"
#include "view/tree/MenuItemNode.h"
#include "view/tree/MountedTree.h"

namespace tarnwell::view {
namespace {

class PushButtonNode final : public ControlNode {
 public:
  using ControlNode::ControlNode;

  std::string summary() const override {
    const auto& button = controlAs<kit::Button>();
    return "Button \"" + button.title() + "\"" +
           (button.role() == kit::Button::Role::destructive ? " destructive" : "") +
           (button.isDefault() ? " default" : "");
  }

 protected:
  std::unique_ptr<kit::Control> makeControl() override {
    auto button = std::make_unique<kit::Button>();
    button->setAction(reacting(this, [](PushButtonNode& node) {
      // A copy: the action may replace the description that holds it.
      if (const kit::Action action = node.valueAs<PlainButton>().action) {
        action();
      }
    }));
    return button;
  }

  void updateControl() override {
    const auto& plain = valueAs<PlainButton>();
    auto& button = controlAs<kit::Button>();
    button.setTitle(plain.title);
    button.setRole(plain.role);
    button.setDefault(plain.isDefault);
  }

  std::string ownName() const override { return valueAs<PlainButton>().title; }
};

class EntryNode final : public MenuItemNode {
 public:
  using MenuItemNode::MenuItemNode;

 protected:
  std::shared_ptr<kit::MenuItem> makeItem() override {
    auto item = kit::MenuItem::create({}, {}, {});
    item->setHandler([weak = weak_from_this()] {
      const auto node = std::static_pointer_cast<EntryNode>(weak.lock());
      if (node && node->isMounted()) {
        if (const kit::Action action = node->valueAs<PlainButton>().action) {
          action();
        }
      }
    });
    return item;
  }

  void updateItem(kit::MenuItem& item) override {
    item.setTitle(valueAs<PlainButton>().title);
    item.setEnabled(environment().get<EnabledKey>());
    item.setKeyEquivalent(environment().get<KeyEquivalentKey>());
  }
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const PlainButton& /*button*/, const Place& place) {
  if (place.tree.isMenu()) {
    return std::make_shared<EntryNode>(place);
  }
  return std::make_shared<PushButtonNode>(place);
}

}  // namespace tarnwell::view
