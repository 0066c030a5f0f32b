#include "view/tree/MountedNode.h"
#include "view/values/View.h"

namespace tarnwell::view {
namespace {

struct BackgroundModifier {
  View content;
  View background;
};

/// The content decides the size; the background stands in its middle.
class BackgroundNode final : public MountedNode {
 public:
  using MountedNode::MountedNode;

 protected:
  void apply() override {
    const auto& modifier = valueAs<BackgroundModifier>();
    // First in the tree is lowest on the screen.
    updateChildren({modifier.background, modifier.content}, environment());
  }

  kit::Measurement layOut(kit::Proposal proposal) override { return children()[1]->measure(proposal); }

  void placeContent(const kit::Rect& frame) override {
    MountedNode& background = *children()[0];
    const kit::Size size = background.measure({.width = frame.width, .height = frame.height}).size;
    background.place({.x = frame.x + (frame.width - size.width) / 2,
                      .y = frame.y + (frame.height - size.height) / 2,
                      .width = size.width,
                      .height = size.height});
    children()[1]->place(frame);
  }
};

std::shared_ptr<MountedNode> makeNode(const BackgroundModifier& /*modifier*/, const Place& place) {
  return std::make_shared<BackgroundNode>(place);
}

}  // namespace

View View::background(View background) const {
  return BackgroundModifier{.content = *this, .background = std::move(background)};
}

}  // namespace tarnwell::view
