#include "view/controls/containers/ScrollAreaNode.h"

#include "kit/host/Host.h"
#include "view/tree/TreeContext.h"

namespace tarnwell::view {

kit::ScrollArea& ScrollAreaNode::area() {
  if (!area_) {
    area_ = std::make_unique<kit::ScrollArea>();
    area_->attach(area_->makePeer(tree().host(), MountedNode::peerForChildren()));
  }
  return *area_;
}

}  // namespace tarnwell::view
