#include "view/controls/containers/ScrollView.h"

#include <algorithm>

#include "kit/controls/containers/Box.h"
#include "view/controls/containers/ScrollAreaNode.h"
#include "view/tree/ControlNode.h"

namespace tarnwell::view {
namespace {

constexpr double frameWidth = 1;

/// The ground, with a line around it.
struct ScrollFrame {
  using Node = class ScrollFrameNode;
};

class ScrollFrameNode final : public ControlNode {
 public:
  using ControlNode::ControlNode;

 protected:
  std::unique_ptr<kit::Control> makeControl() override { return std::make_unique<kit::Box>(kit::Box::Kind::field); }
  void updateControl() override {}
};

/// What scrolls, without the frame.
struct ScrolledContent {
  using Node = class ScrolledContentNode;
  std::string title = {};
  View content;
};

class ScrolledContentNode final : public ScrollAreaNode {
 public:
  using ScrollAreaNode::ScrollAreaNode;

  std::string summary() const override { return "Scrolled"; }

 protected:
  void apply() override {
    area().setAccessibleName(valueAs<ScrolledContent>().title);
    updateChild(valueAs<ScrolledContent>().content, environment());
  }

  kit::Measurement layOut(kit::Proposal proposal) override {
    kit::Measurement content = children().front()->measure({.width = proposal.width});
    content.size.width = proposal.width.value_or(content.size.width);
    content.size.height = std::min(content.size.height, proposal.height.value_or(content.size.height));
    return content;
  }

  void placeContent(const kit::Rect& frame) override {
    const kit::Size content = children().front()->measure({.width = frame.width}).size;
    area().setFrame(kit::onWholePoints(frame));
    area().setContentHeight(content.height);
    children().front()->place({.width = frame.width, .height = content.height});
  }
};

}  // namespace

View ScrollView::body() const {
  return View(ScrolledContent{.title = title, .content = content}).padding(frameWidth).background(ScrollFrame{});
}

}  // namespace tarnwell::view
