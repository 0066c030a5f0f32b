#include "view/controls/buttons/Button.h"

#include "view/controls/buttons/ButtonStyle.h"
#include "view/controls/text/Text.h"
#include "view/layout/Spacer.h"
#include "view/tree/ControlNode.h"
#include "view/tree/MenuItemNode.h"
#include "view/tree/PassThroughNode.h"
#include "view/tree/TreeContext.h"

namespace tarnwell::view {
namespace {

/// A button that no style draws any more.
struct PlainButton {
  std::string title = {};
  kit::Button::Role role = kit::Button::Role::none;
  bool isDefault = false;
  kit::Action action = {};
};

class PushButtonNode final : public ControlNode {
 public:
  using ControlNode::ControlNode;

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

std::shared_ptr<MountedNode> makeNode(const PlainButton& /*button*/, const Place& place) {
  if (place.tree.isMenu()) {
    return std::make_shared<EntryNode>(place);
  }
  return std::make_shared<PushButtonNode>(place);
}

std::string titleOf(const Button& button) {
  if (!button.label) {
    return button.title;
  }
  const Text* text = button.label->valueIf<Text>();
  return text != nullptr ? text->text : std::string();
}

class ButtonNode final : public PassThroughNode {
 public:
  using PassThroughNode::PassThroughNode;

 protected:
  void apply() override {
    const auto& button = valueAs<Button>();
    if (const PrimitiveButtonStyle style = environment().get<ButtonStyleKey>()) {
      const std::optional role = button.role == kit::Button::Role::none ? std::nullopt : std::optional(button.role);
      const View label = button.label ? *button.label : View(Text{button.title});
      updateChild(style({.label = label, .role = role, .trigger = button.action}),
                  environment().with<ButtonStyleKey>(nullptr));
    } else if (button.label && button.label->valueIf<EmptyView>() != nullptr) {
      // Nothing to be seen is nothing to be pressed; its style may have kept the trigger.
      updateChild(EmptyView{}, environment());
    } else {
      updateChild(PlainButton{.title = titleOf(button),
                              .role = button.role,
                              .isDefault = button.keyboardShortcut == KeyboardShortcut::defaultAction,
                              .action = button.action},
                  environment());
    }
  }
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const Button& /*button*/, const Place& place) {
  return std::make_shared<ButtonNode>(place);
}

}  // namespace tarnwell::view
