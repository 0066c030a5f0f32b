#include "view/controls/buttons/Toggle.h"

#include "view/tree/ControlNode.h"

namespace tarnwell::view {
namespace {

class ToggleNode final : public ControlNode {
 public:
  using ControlNode::ControlNode;

 protected:
  std::unique_ptr<kit::Control> makeControl() override {
    auto toggle = std::make_unique<kit::Toggle>();
    toggle->setAction(reacting(this, [](ToggleNode& node, bool on) { node.valueAs<Toggle>().isOn.set(on); }));
    return toggle;
  }

  void updateControl() override {
    const auto& value = valueAs<Toggle>();
    auto& toggle = controlAs<kit::Toggle>();
    toggle.setStyle(value.style);
    toggle.setTitle(value.style == kit::Toggle::Style::checkBox ? value.title : std::string());
    toggle.setOn(value.isOn.get());
  }

  std::string ownName() const override { return valueAs<Toggle>().title; }
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const Toggle& /*toggle*/, const Place& place) {
  return std::make_shared<ToggleNode>(place);
}

}  // namespace tarnwell::view
