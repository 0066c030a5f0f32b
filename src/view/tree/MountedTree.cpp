#include "view/tree/MountedTree.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "kit/control/Control.h"
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

MountedTree::MountedTree(kit::Turn& turn, kit::Host& host, kit::Peer& rootPeer) : context_(turn, &host, &rootPeer) {
  turn.join(*this);
}

MountedTree::MountedTree(kit::Turn& turn, kit::Menu& menu) : context_(turn, nullptr, nullptr), menu_(&menu) {
  turn.join(*this);
}

MountedTree::~MountedTree() {
  context_.turn().leave(*this);
  if (root_) {
    root_->unmount();
    context_.turn().releaseLater(root_);
  }
}

void MountedTree::mount(const View& view, const EnvironmentValues& environment) {
  root_ = view.description().makeNode({.tree = context_, .parent = nullptr, .view = view, .environment = environment});
  root_->mount();
  context_.setNeedsLayout();
}

void MountedTree::setShown(bool shown) {
  if (context_.setShown(shown)) {
    walk(*root_, [shown](MountedNode& node) { node.showingChanged(shown); });
  }
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
  const auto dirty = ancestorsFirst(context_.takeDirty());
  for (const auto& node : dirty) {
    // An ancestor's refresh may have updated or removed it meanwhile.
    if (node->isMounted() && node->isDirty()) {
      node->refresh();
    }
  }
  const auto handlers = context_.takeHandlers();
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
  if (context_.takeNeedsLayout() && layoutAction_) {
    root_->explain({});
    layoutAction_();
  }
}

}  // namespace tarnwell::view
