#include "view/controls/text/RichText.h"

#include "view/values/EnvironmentKeys.h"

#include "view/tree/ControlNode.h"

namespace tarnwell::view {
namespace {

class RichTextNode final : public ControlNode {
 public:
  using ControlNode::ControlNode;

 protected:
  std::unique_ptr<kit::Control> makeControl() override {
    auto text = std::make_unique<kit::RichText>();
    text->setLinkAction(reacting(this, [](RichTextNode& node, const std::string& link) {
      const auto open = node.environment().get<OpenUrlKey>();
      open(link);
    }));
    return text;
  }

  void updateControl() override { controlAs<kit::RichText>().setText(valueAs<RichText>().text); }
  std::string ownName() const override { return valueAs<RichText>().title; }
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const RichText& /*text*/, const Place& place) {
  return std::make_shared<RichTextNode>(place);
}

}  // namespace tarnwell::view
