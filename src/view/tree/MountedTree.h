#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "kit/turn/Action.h"
#include "kit/turn/Turn.h"
#include "view/tree/TreeContext.h"
#include "view/values/EnvironmentValues.h"
#include "view/values/View.h"

namespace tarnwell::kit {
class Control;
class Host;
class Menu;
class Peer;
}  // namespace tarnwell::kit

namespace tarnwell::view {

class MountedNode;

/// One view and everything below it, mounted in a window or a menu. Whatever changes it runs through the turn, and when
/// the outermost event ends the tree is brought in line again until nothing changes any more.
class MountedTree final : public kit::Settler {
 public:
  /// Turn, host and peer are borrowed and outlive the tree.
  MountedTree(kit::Turn& turn, kit::Host& host, kit::Peer& rootPeer);
  /// The entries of a menu instead of controls in a window; borrowed as well.
  MountedTree(kit::Turn& turn, kit::Menu& menu);
  MountedTree(const MountedTree&) = delete;
  MountedTree& operator=(const MountedTree&) = delete;
  ~MountedTree() override;

  /// Once, before anything else.
  void mount(const View& view, const EnvironmentValues& environment);

  /// Whether its window is on the screen. Appear handlers run when that becomes true, within the same turn.
  void setShown(bool shown);
  bool isShown() const { return context_.isShown(); }
  void setNeedsLayout() { context_.setNeedsLayout(); }

  MountedNode& root() const { return *root_; }

  /// Every control in the order of the tree, with what stands in hosting views.
  std::vector<kit::Control*> controls() const;

  /// Called at the end of each settling that made a new layout necessary.
  void setLayoutAction(kit::Action action) { layoutAction_ = std::move(action); }

  bool settleStep() override;
  void settled() override;

 private:
  void fillMenu();

  TreeContext context_;
  kit::Menu* menu_ = nullptr;
  std::shared_ptr<MountedNode> root_;
  kit::Action layoutAction_;
};

}  // namespace tarnwell::view
