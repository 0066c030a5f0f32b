#include "view/controls/Button.h"

#include "view/controls/PlainButton.h"
#include "view/controls/Text.h"
#include "view/layout/Spacer.h"
#include "view/tree/PassThroughNode.h"
#include "view/values/ButtonStyle.h"

namespace tarnwell::view {
namespace {

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
      updateChildren({style({.label = label, .role = role, .trigger = button.action})},
                     environment().with<ButtonStyleKey>(nullptr));
    } else if (button.label && button.label->valueIf<EmptyView>() != nullptr) {
      // Nothing to be seen is nothing to be pressed; its style may have kept the trigger.
      updateChildren({EmptyView{}}, environment());
    } else {
      updateChildren({PlainButton{.title = titleOf(button),
                                  .role = button.role,
                                  .isDefault = button.keyboardShortcut == KeyboardShortcut::defaultAction,
                                  .action = button.action}},
                     environment());
    }
  }
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const Button& /*button*/, const Place& place) {
  return std::make_shared<ButtonNode>(place);
}

}  // namespace tarnwell::view
