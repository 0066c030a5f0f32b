#pragma once

#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "kit/host/Geometry.h"
#include "kit/host/Measurement.h"
#include "kit/turn/Action.h"
#include "view/values/AccessibleContext.h"
#include "view/values/EnvironmentValues.h"
#include "view/values/View.h"

namespace tarnwell::kit {
class Control;
class MenuItem;
class Peer;
}  // namespace tarnwell::kit

namespace tarnwell::view {

class TreeContext;

/// Where a node is made: its tree, its parent (null for the root), what it describes, what flows down to it.
struct Place {
  TreeContext& tree;
  MountedNode* parent;
  View view;
  EnvironmentValues environment;
};

/// A view that stands in a tree. It outlives the descriptions that come and go: an update of the same type is taken
/// over, any other replaces the node. Held by its parent alone; every other pointer to it is weak.
class MountedNode : public std::enable_shared_from_this<MountedNode> {
 public:
  explicit MountedNode(const Place& place);
  MountedNode(const MountedNode&) = delete;
  MountedNode& operator=(const MountedNode&) = delete;
  virtual ~MountedNode() = default;

  /// Makes controls and children; once, right after construction.
  void mount();
  /// Takes over a description of the same type. One that says the same, in the same environment, changes nothing.
  void update(View view, EnvironmentValues environment);
  /// Brings everything in line once more, from the state as it is now.
  void refresh();
  void unmount();

  /// Refreshes when the tree settles next.
  void markDirty();
  /// Does that for as long as the node lives, and nothing afterwards.
  kit::Action markingDirty();

  bool isMounted() const { return mounted_; }
  bool isDirty() const { return dirty_; }
  int depth() const { return depth_; }

  TreeContext& tree() const { return tree_; }
  const EnvironmentValues& environment() const { return environment_; }
  const std::vector<std::shared_ptr<MountedNode>>& children() const { return children_; }

  /// Its control, and its entry in a menu; null where it has none.
  virtual kit::Control* control() const { return nullptr; }
  virtual std::shared_ptr<kit::MenuItem> menuItem() const { return nullptr; }
  /// The parent of the peers below.
  virtual kit::Peer& peerForChildren() const;

  /// Told at every showing and hiding, ancestors first.
  virtual void showingChanged(bool /*shown*/) {}

  /// Tells the controls below what stands around them; before each layout.
  virtual void explain(const AccessibleContext& around);

  /// Takes no room and no part in spacing.
  virtual bool isEmpty() const { return false; }
  /// Takes what the others leave.
  virtual bool isSpacer() const { return false; }
  /// Its one child stands for it: the place is handed on.
  virtual bool passesPlaceOn() const { return false; }
  /// Stands for all that is in the tree: whatever is above it passes its place on.
  bool isOutermost() const;

  kit::Measurement measure(kit::Proposal proposal);
  /// Stands at `frame`, in the coordinates of the nearest container of peers.
  void place(const kit::Rect& frame);
  const kit::Rect& frame() const { return frame_; }

  /// The natural size changed: what was measured here and above counts no more.
  void forgetMeasurements();
  /// The same for everything below.
  void forgetMeasurementsBelow();

  /// One line for a picture of the tree; empty for what passes things on, and for a control, which tells of itself.
  virtual std::string summary() const { return {}; }

 protected:
  const View& view() const { return view_; }
  const Description& description() const { return view_.description(); }

  /// The description, for a node that was made for values of type `V`.
  template <class V>
  const V& valueAs() const {
    return valueOf<V>(view_.description());
  }
  template <class V>
  static const V& valueOf(const Description& description) {
    return static_cast<const ValueDescription<V>&>(description).value();
  }

  /// Brings controls and children in line with description and environment, at mounting and at every update.
  virtual void apply() = 0;
  virtual void willUnmount() {}
  /// The host measures differently; what was measured here has been forgotten.
  virtual void metricsChanged() {}
  /// Whether it would lay out the same children as it does now with `next`, a description of the same type.
  virtual bool laysOutLike(const Description& /*next*/) const { return true; }
  virtual kit::Measurement layOut(kit::Proposal proposal) = 0;
  virtual void placeContent(const kit::Rect& frame) = 0;

  /// Walks old and new children in lockstep, by position and type.
  void updateChildren(std::span<const View> views, const EnvironmentValues& environment);
  void updateChild(const View& view, const EnvironmentValues& environment) { updateChildren({&view, 1}, environment); }

 private:
  std::shared_ptr<MountedNode> makeChild(const View& view, const EnvironmentValues& environment);
  void retire(const std::shared_ptr<MountedNode>& child);

  TreeContext& tree_;
  MountedNode* parent_;
  View view_;
  EnvironmentValues environment_;
  std::vector<std::shared_ptr<MountedNode>> children_;
  std::vector<std::pair<kit::Proposal, kit::Measurement>> measurements_;
  kit::Rect frame_;
  int depth_;
  bool mounted_ = false;
  bool placed_ = false;
  bool dirty_ = false;
};

/// For a kind of view that names the class of its nodes.
template <class V>
requires requires { typename V::Node; }
std::shared_ptr<MountedNode> makeNode(const V& /*value*/, const Place& place) {
  return std::make_shared<typename V::Node>(place);
}

}  // namespace tarnwell::view
