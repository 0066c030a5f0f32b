#include "view/HostingView.h"

#include "kit/Turn.h"
#include "view/MountedNode.h"

namespace tarnwell::view {

std::unique_ptr<kit::Peer> HostingView::makePeer(kit::Host& host, kit::Peer& parent) {
  host_ = &host;
  return Pane::makePeer(host, parent);
}

kit::Measurement HostingView::measure(const kit::TextMeasurer& text, kit::Proposal proposal) const {
  return tree_ ? tree_->root().measure(proposal) : Pane::measure(text, proposal);
}

void HostingView::attached() {
  tree_.reset();
  if (peer() == nullptr || turn() == nullptr) {
    return;
  }
  tree_ = std::make_unique<MountedTree>(*turn(), *host_, *peer());
  tree_->setLayoutAction([this] { placed(); });
  turn()->perform([this] {
    tree_->mount(rootView_, {});
    tree_->setShown(true);
  });
}

void HostingView::placed() {
  if (tree_) {
    tree_->root().place({.width = bounds().width, .height = bounds().height});
  }
}

}  // namespace tarnwell::view
