#include "view/controls/text/TextField.h"

#include "diagnostics/Fault.h"
#include "kit/controls/text/TextField.h"
#include "view/tree/ControlNode.h"

namespace tarnwell::view {
namespace {

class TextFieldNode final : public ControlNode {
 public:
  using ControlNode::ControlNode;

 protected:
  std::unique_ptr<kit::Control> makeControl() override {
    auto field = std::make_unique<kit::TextField>();
    field->setAction(reacting(this, [](TextFieldNode& node, const std::string& typed) {
      if (const auto number = node.format().value(typed)) {
        node.valueAs<TextField>().value.set(*number);
      }
    }));
    return field;
  }

  void updateControl() override {
    const auto& field = valueAs<TextField>();
    controlAs<kit::TextField>().setText(format().text(field.value.get(), field.mostFractionDigits));
  }

  std::string ownName() const override { return valueAs<TextField>().title; }

 private:
  const kit::NumberFormat& format() const {
    const auto format = environment().get<NumberFormatKey>();
    if (!format) {
      diagnostics::fault("a number field stands where the environment has no number format");
    }
    // The environment keeps it alive as long as the node.
    return *format;
  }
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const TextField& /*field*/, const Place& place) {
  return std::make_shared<TextFieldNode>(place);
}

}  // namespace tarnwell::view
