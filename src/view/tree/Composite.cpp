#include "view/tree/Composite.h"

#include "kit/turn/Turn.h"
#include "view/tree/TreeContext.h"

namespace tarnwell::view {

void CompositeNode::apply() {
  std::shared_ptr<CompositeBox> next = makeBox_(description());
  next->link(*this, box_.get());
  if (box_) {
    box_->unlink();
    tree().turn().releaseLater(box_);
  }
  box_ = std::move(next);
  updateChild(box_->body(), environment());
}

void CompositeNode::willUnmount() { box_->unlink(); }

}  // namespace tarnwell::view
