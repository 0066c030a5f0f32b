#pragma once

#include <memory>

#include "kit/controls/containers/ScrollArea.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::view {

/// The node of a view whose children stand in a scroll area of its own.
class ScrollAreaNode : public MountedNode {
 public:
  using MountedNode::MountedNode;

  kit::Control* control() const override { return area_.get(); }
  kit::Peer& peerForChildren() const override { return *area_->peer(); }

 protected:
  /// Makes the area, at the first call. To be called before children are mounted in it.
  kit::ScrollArea& area();
  void willUnmount() override { area_->attach(nullptr); }

 private:
  std::unique_ptr<kit::ScrollArea> area_;
};

}  // namespace tarnwell::view
