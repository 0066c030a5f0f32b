#include "view/tree/MountedTree.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "kit/control/Control.h"
#include "kit/host/WindowPeer.h"
#include "kit/menus/Menu.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::view {
namespace {

template <class Visit>
void walk(MountedNode& node, const Visit& visit) {
  visit(node);
  for (const auto& child : node.children()) {
    walk(*child, visit);
  }
}

std::vector<std::shared_ptr<MountedNode>> ancestorsFirst(const std::vector<std::weak_ptr<MountedNode>>& nodes) {
  std::vector<std::shared_ptr<MountedNode>> alive;
  for (const auto& weak : nodes) {
    if (auto node = weak.lock()) {
      alive.push_back(std::move(node));
    }
  }
  std::ranges::stable_sort(alive, {}, [](const auto& node) { return node->depth(); });
  return alive;
}

}  // namespace

MountedTree::MountedTree(kit::Turn& turn, kit::Host& host, kit::Peer& rootPeer)
    : turn_(turn), host_(&host), rootPeer_(&rootPeer) {
  turn_.join(*this);
}

MountedTree::MountedTree(kit::Turn& turn, kit::Menu& menu) : turn_(turn), menu_(&menu) { turn_.join(*this); }

MountedTree::~MountedTree() {
  turn_.leave(*this);
  if (root_) {
    root_->unmount();
    turn_.releaseLater(root_);
  }
}

void MountedTree::mount(const View& view, const EnvironmentValues& environment) {
  root_ = view.description().makeNode({.tree = *this, .parent = nullptr, .view = view, .environment = environment});
  root_->mount();
  needsLayout_ = true;
}

void MountedTree::setShown(bool shown) {
  if (std::exchange(shown_, shown) != shown) {
    walk(*root_, [shown](MountedNode& node) { node.showingChanged(shown); });
  }
}

double MountedTree::chromeHeight(double width) const {
  const auto* window = dynamic_cast<const kit::WindowPeer*>(rootPeer_);
  return window != nullptr ? window->chromeHeight(width) : 0;
}

std::vector<kit::Control*> MountedTree::controls() const {
  std::vector<kit::Control*> found;
  walk(*root_, [&found](const MountedNode& node) {
    if (kit::Control* control = node.control()) {
      found.push_back(control);
      std::ranges::copy(control->hostedControls(), std::back_inserter(found));
    }
  });
  return found;
}

bool MountedTree::settleStep() {
  const auto dirty = ancestorsFirst(std::exchange(dirty_, {}));
  for (const auto& node : dirty) {
    // An ancestor's refresh may have updated or removed it meanwhile.
    if (node->isMounted() && node->isDirty()) {
      node->refresh();
    }
  }
  const auto handlers = std::exchange(handlers_, {});
  for (const kit::Action& handler : handlers) {
    handler();
  }
  return !dirty.empty() || !handlers.empty();
}

void MountedTree::fillMenu() {
  std::vector<std::shared_ptr<kit::MenuItem>> items;
  walk(*root_, [&items](const MountedNode& node) {
    if (auto item = node.menuItem()) {
      items.push_back(std::move(item));
    }
  });
  menu_->setItems(std::move(items));
}

void MountedTree::settled() {
  if (menu_ != nullptr && root_) {
    fillMenu();
  }
  if (std::exchange(needsLayout_, false) && layoutAction_) {
    root_->explain({});
    layoutAction_();
  }
}

}  // namespace tarnwell::view
