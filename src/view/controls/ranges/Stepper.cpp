#include "view/controls/ranges/Stepper.h"

#include "view/tree/ControlNode.h"

namespace tarnwell::view {
namespace {

class StepperNode final : public ControlNode {
 public:
  using ControlNode::ControlNode;

 protected:
  std::unique_ptr<kit::Control> makeControl() override {
    auto stepper = std::make_unique<kit::Stepper>();
    stepper->setAction(
        reacting(this, [](StepperNode& node, double value) { node.valueAs<Stepper>().value.set(value); }));
    return stepper;
  }

  void updateControl() override {
    auto& stepper = controlAs<kit::Stepper>();
    stepper.setRange(valueAs<Stepper>().range);
    stepper.setValue(valueAs<Stepper>().value.get());
  }

  std::string ownName() const override { return valueAs<Stepper>().title; }
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const Stepper& /*stepper*/, const Place& place) {
  return std::make_shared<StepperNode>(place);
}

}  // namespace tarnwell::view
