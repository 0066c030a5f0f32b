#include "view/scenes/HostingView.h"

#include <utility>

#include "kit/turn/Turn.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::view {

std::unique_ptr<kit::Peer> HostingView::makePeer(kit::Host& host, kit::Peer& parent) {
  host_ = &host;
  return Pane::makePeer(host, parent);
}

kit::Measurement HostingView::sizeThatFits(kit::Proposal proposal) const {
  return tree_ ? tree_->root().measure(proposal) : Pane::sizeThatFits(proposal);
}

void HostingView::attached() {
  tree_.reset();
  if (peer() == nullptr || turn() == nullptr) {
    return;
  }
  tree_ = std::make_unique<MountedTree>(*turn(), *host_, *peer());
  settledBefore_ = false;
  tree_->setLayoutAction([this] { settled(); });
  turn()->perform([this] {
    tree_->mount(rootView_, {});
    tree_->setShown(shown_);
  });
}

void HostingView::metricsChanged() {
  if (tree_) {
    tree_->root().forgetMeasurementsBelow();
  }
}

void HostingView::showingChanged(bool shown) {
  shown_ = shown;
  if (tree_) {
    tree_->setShown(shown);
  }
}

std::vector<kit::Control*> HostingView::hostedControls() const {
  return tree_ ? tree_->controls() : std::vector<kit::Control*>();
}

void HostingView::settled() {
  placed();
  // The first time everything around it is about to be laid out anyway.
  if (std::exchange(settledBefore_, true)) {
    turn()->perform([this] { sizeChangedByItself(); });
  }
}

void HostingView::placed() {
  if (tree_) {
    tree_->root().place({.width = bounds().width, .height = bounds().height});
  }
}

}  // namespace tarnwell::view
