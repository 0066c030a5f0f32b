#include <algorithm>
#include <array>

#include "view/tree/PassThroughNode.h"
#include "view/tree/TreeContext.h"
#include "view/values/Alignment.h"
#include "view/values/PlainText.h"
#include "view/values/View.h"

namespace tarnwell::view {
namespace {

struct FrameModifier {
  using Node = class FrameNode;
  View content;
  Frame frame;
};

class FrameNode final : public ModifierNode<FrameModifier> {
 public:
  using ModifierNode::ModifierNode;

  std::string summary() const override {
    const Frame& frame = modifier().frame;
    return "Frame" + (frame.width ? " width " + plainText(*frame.width) : "") +
           (frame.minWidth ? " at least " + plainText(*frame.minWidth) + " wide" : "") +
           (frame.height ? " height " + plainText(*frame.height) : "") +
           (frame.maxHeight ? " at most " + plainText(*frame.maxHeight) + " high" : "") + " " +
           alignmentName(frame.alignment);
  }

 protected:
  bool laysOutLike(const Description& next) const override {
    return valueOf<FrameModifier>(next).frame == modifier().frame;
  }

  kit::Measurement layOut(kit::Proposal proposal) override {
    const Frame& frame = modifier().frame;
    kit::Measurement inner = child().measure(within(proposal));
    const std::optional<double> most = maxHeight(inner.size.width);
    if (most && inner.size.height > *most) {
      // Proposed again, so that the content knows that it is cut and can scroll.
      inner = child().measure({.width = within(proposal).width, .height = most});
    }
    const double height = std::min(inner.size.height, most.value_or(inner.size.height));
    const double width = std::max(inner.size.width, frame.minWidth.value_or(0));
    return {.size = {.width = frame.width.value_or(width), .height = frame.height.value_or(height)},
            .firstBaseline = inner.firstBaseline};
  }

  void placeContent(const kit::Rect& frame) override {
    kit::Size size = child().measure(within({.width = frame.width, .height = frame.height})).size;
    if (!modifier().frame.height) {
      // Content that insists on its size would lose its upper end on a low screen; so it learns of it and scrolls.
      size.height = std::min(size.height, frame.height);
    }
    const double x = aligned(modifier().frame.alignment, size.width, frame.width);
    child().place({.x = frame.x + x,
                   .y = frame.y + (frame.height - size.height) / 2,
                   .width = size.width,
                   .height = size.height});
  }

 private:
  std::optional<double> maxHeight(double width) const {
    const std::optional<double> most = modifier().frame.maxHeight;
    // What frames the whole content of a window frames a menu bar in it too.
    return most && isOutermost() ? std::max(0.0, *most - tree().chromeHeight(width)) : most;
  }

  kit::Proposal within(kit::Proposal proposal) const {
    const Frame& frame = modifier().frame;
    if (frame.width) {
      proposal.width = frame.width;
    } else if (frame.minWidth) {
      proposal.width = std::max(*frame.minWidth, proposal.width.value_or(0));
    }
    if (frame.height) {
      proposal.height = frame.height;
    }
    if (proposal.width && proposal.height) {
      proposal.height = std::min(*proposal.height, maxHeight(*proposal.width).value_or(*proposal.height));
    }
    return proposal;
  }
};

struct FixedSizeModifier {
  using Node = class FixedSizeNode;
  View content;
};

class FixedSizeNode final : public ModifierNode<FixedSizeModifier> {
 public:
  using ModifierNode::ModifierNode;

  std::string summary() const override { return "Fixed size"; }

 protected:
  // Placed where there is less room, on a low screen, the content still learns of it.
  kit::Measurement layOut(kit::Proposal /*proposal*/) override { return child().measure({}); }
};

struct PaddingModifier {
  using Node = class PaddingNode;
  View content;
  double length;
};

class PaddingNode final : public ModifierNode<PaddingModifier> {
 public:
  using ModifierNode::ModifierNode;

  std::string summary() const override { return "Padding " + plainText(length()); }

 protected:
  bool laysOutLike(const Description& next) const override { return valueOf<PaddingModifier>(next).length == length(); }

  kit::Measurement layOut(kit::Proposal proposal) override {
    const kit::Measurement inner =
        child().measure({.width = within(proposal.width), .height = within(proposal.height)});
    return {.size = {.width = inner.size.width + 2 * length(), .height = inner.size.height + 2 * length()},
            .firstBaseline = inner.firstBaseline + length()};
  }

  void placeContent(const kit::Rect& frame) override {
    child().place({.x = frame.x + length(),
                   .y = frame.y + length(),
                   .width = *within(frame.width),
                   .height = *within(frame.height)});
  }

 private:
  double length() const { return modifier().length; }
  std::optional<double> within(std::optional<double> proposed) const {
    return proposed ? std::optional(std::max(0.0, *proposed - 2 * length())) : std::nullopt;
  }
};

struct BackgroundModifier {
  using Node = class BackgroundNode;
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
    updateChildren(std::array{modifier.background, modifier.content}, environment());
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

}  // namespace

View View::frame(Frame frame) const { return FrameModifier{.content = *this, .frame = frame}; }

View View::fixedSize() const { return FixedSizeModifier{.content = *this}; }

View View::padding(double length) const { return PaddingModifier{.content = *this, .length = length}; }

View View::background(View background) const {
  return BackgroundModifier{.content = *this, .background = std::move(background)};
}

}  // namespace tarnwell::view
