#pragma once

#include "view/tree/MountedNode.h"

namespace tarnwell::view {

/// A node with one child, whose size and place are its own.
class PassThroughNode : public MountedNode {
 public:
  using MountedNode::MountedNode;

  bool isEmpty() const override { return child().isEmpty(); }
  bool isSpacer() const override { return child().isSpacer(); }
  bool passesPlaceOn() const final { return true; }

 protected:
  MountedNode& child() const { return *children().front(); }
  kit::Measurement layOut(kit::Proposal proposal) override { return child().measure(proposal); }
  void placeContent(const kit::Rect& frame) override { child().place(frame); }
};

/// The node of a modifier `M`, a value with a view as its `content`.
template <class M>
class ModifierNode : public PassThroughNode {
 public:
  using PassThroughNode::PassThroughNode;

 protected:
  const M& modifier() const { return valueAs<M>(); }
  void apply() override { updateChild(modifier().content, environment()); }
};

}  // namespace tarnwell::view
