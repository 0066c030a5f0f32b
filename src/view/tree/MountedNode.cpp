#include "view/tree/MountedNode.h"

#include "kit/turn/Turn.h"
#include "view/tree/TreeContext.h"

namespace tarnwell::view {
namespace {

// A layout asks a node for a handful of sizes. More is what layouts of the past asked for.
constexpr std::size_t fewMeasurements = 8;
constexpr std::size_t mostMeasurements = 32;

}  // namespace

MountedNode::MountedNode(const Place& place)
    : tree_(place.tree),
      parent_(place.parent),
      view_(place.view),
      environment_(place.environment),
      depth_(place.parent != nullptr ? place.parent->depth() + 1 : 0) {}

void MountedNode::mount() {
  mounted_ = true;
  if (tree_.isShown()) {
    showingChanged(true);
  }
  apply();
}

void MountedNode::update(View view, EnvironmentValues environment) {
  if (!dirty_ && view.description().isSameAs(view_.description()) && environment == environment_) {
    return;
  }
  if (!laysOutLike(view.description())) {
    forgetMeasurements();
  }
  view_ = std::move(view);
  environment_ = std::move(environment);
  dirty_ = false;
  apply();
}

void MountedNode::refresh() {
  dirty_ = false;
  apply();
}

void MountedNode::unmount() {
  for (const auto& child : children_) {
    child->unmount();
  }
  willUnmount();
  mounted_ = false;
}

void MountedNode::markDirty() {
  if (mounted_ && !dirty_) {
    dirty_ = true;
    tree_.addDirty(weak_from_this());
  }
}

kit::Action MountedNode::markingDirty() {
  return [weak = weak_from_this()] {
    if (const auto node = weak.lock()) {
      node->markDirty();
    }
  };
}

kit::Peer& MountedNode::peerForChildren() const {
  return parent_ != nullptr ? parent_->peerForChildren() : tree_.rootPeer();
}

void MountedNode::explain(const AccessibleContext& around) {
  for (const auto& child : children_) {
    child->explain(around);
  }
}

bool MountedNode::isOutermost() const {
  return parent_ == nullptr || (parent_->passesPlaceOn() && parent_->isOutermost());
}

kit::Measurement MountedNode::measure(kit::Proposal proposal) {
  // What it would remember its child remembers.
  if (passesPlaceOn()) {
    return layOut(proposal);
  }
  for (const auto& [known, measurement] : measurements_) {
    if (known == proposal) {
      return measurement;
    }
  }
  const kit::Measurement measurement = layOut(proposal);
  if (measurements_.empty()) {
    measurements_.reserve(fewMeasurements);
  } else if (measurements_.size() == mostMeasurements) {
    measurements_.clear();
  }
  measurements_.emplace_back(proposal, measurement);
  return measurement;
}

void MountedNode::place(const kit::Rect& frame) {
  // Whatever moves something below was forgotten on its way up.
  if (std::exchange(placed_, true) && frame == frame_) {
    return;
  }
  frame_ = frame;
  placeContent(frame);
}

void MountedNode::forgetMeasurements() {
  for (MountedNode* node = this; node != nullptr; node = node->parent_) {
    node->measurements_.clear();
    node->placed_ = false;
  }
  tree_.setNeedsLayout();
}

void MountedNode::forgetMeasurementsBelow() {
  measurements_.clear();
  placed_ = false;
  metricsChanged();
  for (const auto& child : children_) {
    child->forgetMeasurementsBelow();
  }
  tree_.setNeedsLayout();
}

void MountedNode::updateChildren(std::span<const View> views, const EnvironmentValues& environment) {
  while (children_.size() > views.size()) {
    retire(children_.back());
    children_.pop_back();
  }
  for (std::size_t i = 0; i < views.size(); ++i) {
    if (i == children_.size()) {
      children_.push_back(makeChild(views[i], environment));
    } else if (children_[i]->view_.description().type() == views[i].description().type()) {
      children_[i]->update(views[i], environment);
    } else {
      retire(children_[i]);
      children_[i] = makeChild(views[i], environment);
    }
  }
}

std::shared_ptr<MountedNode> MountedNode::makeChild(const View& view, const EnvironmentValues& environment) {
  auto child = view.description().makeNode({.tree = tree_, .parent = this, .view = view, .environment = environment});
  child->mount();
  forgetMeasurements();
  return child;
}

void MountedNode::retire(const std::shared_ptr<MountedNode>& child) {
  child->unmount();
  tree_.turn().releaseLater(child);
  forgetMeasurements();
}

}  // namespace tarnwell::view
