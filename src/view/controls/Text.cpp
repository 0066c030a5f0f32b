#include "view/controls/Text.h"

#include "kit/controls/TextLabel.h"
#include "view/tree/ControlNode.h"

namespace tarnwell::view {
namespace {

std::string styleNote(const kit::TextLabel::Style& style) {
  std::string note;
  if (style.font == kit::FontRole::caption) {
    note += " caption";
  } else if (style.font == kit::FontRole::subheadline) {
    note += " subheadline";
  }
  return note + (style.color == kit::ColorRole::secondary ? " secondary" : "");
}

class TextNode final : public ControlNode {
 public:
  using ControlNode::ControlNode;

  std::string summary() const override {
    const auto& label = controlAs<kit::TextLabel>();
    return "Text \"" + label.text() + "\"" + styleNote(label.style());
  }

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
