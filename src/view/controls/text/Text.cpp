#include "view/controls/text/Text.h"

#include "kit/controls/text/TextLabel.h"
#include "view/tree/ControlNode.h"

namespace tarnwell::view {
namespace {

class TextNode final : public ControlNode {
 public:
  using ControlNode::ControlNode;

 protected:
  std::unique_ptr<kit::Control> makeControl() override { return std::make_unique<kit::TextLabel>(); }

  void updateControl() override {
    auto& label = controlAs<kit::TextLabel>();
    label.setText(valueAs<Text>().text);
    label.setStyle({.font = environment().get<FontKey>(), .color = environment().get<ForegroundKey>()});
  }

  std::string ownName() const override { return valueAs<Text>().text; }
  bool isNamedByRow() const override { return false; }
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const Text& /*text*/, const Place& place) {
  return std::make_shared<TextNode>(place);
}

}  // namespace tarnwell::view
