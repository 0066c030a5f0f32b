#include "view/scenes/HostedWindow.h"

#include <algorithm>
#include <utility>

#include "kit/host/Host.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::view {

HostedWindow::HostedWindow(kit::Turn& turn, kit::Host& host, const Content& content)
    : turn_(turn), window_(content.identifier, content.title, content.kind) {
  window_.joinTurn(turn);
  window_.attach(host.peer(window_));
  tree_ = std::make_unique<MountedTree>(turn, host, *window_.peer());
  tree_->setLayoutAction([this] { settled(); });
  window_.setMetricsAction([this] { turn_.perform([this] { tree_->root().forgetMeasurementsBelow(); }); });
  turn_.perform([&] { tree_->mount(content.view, content.environment); });
}

HostedWindow::~HostedWindow() {
  // The controls go before the window whose peer is their parent.
  window_.setControls({});
  tree_.reset();
}

void HostedWindow::open() {
  turn_.perform([this] {
    showWhenSettled_ = true;
    tree_->setShown(true);
    tree_->setNeedsLayout();
  });
}

void HostedWindow::close() {
  turn_.perform([this] {
    // One that its own appear handler closes never flashes.
    showWhenSettled_ = false;
    window_.setVisible(false);
    tree_->setShown(false);
  });
}

void HostedWindow::settled() {
  // A hidden window is laid out when it is shown.
  if (tree_->isShown()) {
    layOut();
  }
  window_.setControls(tree_->controls());
  if (std::exchange(showWhenSettled_, false)) {
    window_.setVisible(true);
  }
}

void HostedWindow::layOut() {
  kit::Size size = tree_->root().measure({}).size;
  size.height = std::min(size.height, window_.peer()->availableHeight(size.width));
  window_.setContentSize(size);
  tree_->root().place({.width = size.width, .height = size.height});
}

}  // namespace tarnwell::view
