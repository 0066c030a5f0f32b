#pragma once

#include <memory>

#include "view/tree/PassThroughNode.h"

namespace tarnwell::view {

/// A node's own copy of a composite.
class CompositeBox {
 public:
  CompositeBox() = default;
  CompositeBox(const CompositeBox&) = delete;
  CompositeBox& operator=(const CompositeBox&) = delete;
  virtual ~CompositeBox() = default;

  virtual View body() const = 0;
  /// Makes the cells of the dynamic members, or takes over those of the copy before.
  virtual void link(MountedNode& node, CompositeBox* previous) = 0;
  virtual void unlink() = 0;
};

/// A composite in the tree. A copy that is replaced lives until the event has ended: its closures may be running.
class CompositeNode final : public PassThroughNode {
 public:
  using MakeBox = std::unique_ptr<CompositeBox> (*)(const Description&);

  CompositeNode(const Place& place, MakeBox makeBox) : PassThroughNode(place), makeBox_(makeBox) {}

 protected:
  void apply() override;
  void willUnmount() override;

 private:
  MakeBox makeBox_;
  std::shared_ptr<CompositeBox> box_;
};

}  // namespace tarnwell::view
