#include "view/Button.h"

#include "view/ControlNode.h"
#include "view/ControlSummary.h"

namespace tarnwell::view {
namespace {

class ButtonNode final : public ControlNode {
 public:
  using ControlNode::ControlNode;

  std::string summary() const override { return describe(controlAs<kit::Button>()); }

 protected:
  std::unique_ptr<kit::Control> makeControl() override {
    auto button = std::make_unique<kit::Button>();
    button->setAction(reacting(this, [](ButtonNode& node) {
      // A copy: the action may replace the description that holds it.
      if (const kit::Action action = node.valueAs<Button>().action) {
        action();
      }
    }));
    return button;
  }

  void updateControl() override {
    auto& button = controlAs<kit::Button>();
    button.setTitle(valueAs<Button>().title);
    button.setRole(valueAs<Button>().role);
    button.setDefault(valueAs<Button>().keyboardShortcut == KeyboardShortcut::defaultAction);
  }

  std::string ownName() const override { return valueAs<Button>().title; }
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const Button& /*button*/, const Place& place) {
  return std::make_shared<ButtonNode>(place);
}

}  // namespace tarnwell::view
