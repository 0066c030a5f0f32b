#include "view/layout/Spacer.h"

#include <algorithm>

#include "view/tree/MountedNode.h"

namespace tarnwell::view {
namespace {

class BlankNode : public MountedNode {
 public:
  using MountedNode::MountedNode;

 protected:
  void apply() override {}
  kit::Measurement layOut(kit::Proposal /*proposal*/) override { return {}; }
  void placeContent(const kit::Rect& /*frame*/) override {}
};

class EmptyNode final : public BlankNode {
 public:
  using BlankNode::BlankNode;
  bool isEmpty() const override { return true; }
};

class SpacerNode final : public BlankNode {
 public:
  using BlankNode::BlankNode;
  bool isSpacer() const override { return true; }
  std::string summary() const override { return "Spacer"; }

 protected:
  bool laysOutLike(const Description& next) const override {
    return valueOf<Spacer>(next).minLength == valueAs<Spacer>().minLength;
  }

  // A stack takes the length along its axis; across it a spacer has none.
  kit::Measurement layOut(kit::Proposal proposal) override {
    const double least = valueAs<Spacer>().minLength;
    return {.size = {.width = std::max(least, proposal.width.value_or(least)),
                     .height = std::max(least, proposal.height.value_or(least))}};
  }
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const Spacer& /*spacer*/, const Place& place) {
  return std::make_shared<SpacerNode>(place);
}

std::shared_ptr<MountedNode> makeNode(const EmptyView& /*empty*/, const Place& place) {
  return std::make_shared<EmptyNode>(place);
}

}  // namespace tarnwell::view
