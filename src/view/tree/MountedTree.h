#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "kit/turn/Action.h"
#include "kit/turn/Turn.h"
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
  bool isShown() const { return shown_; }

  MountedNode& root() const { return *root_; }
  kit::Turn& turn() const { return turn_; }
  bool isMenu() const { return menu_ != nullptr; }
  /// Only in a window.
  kit::Host& host() const { return *host_; }
  kit::Peer& rootPeer() const { return *rootPeer_; }

  /// Of the window that it is mounted in, at that width, what is not the content's; 0 for any other place.
  double chromeHeight(double width) const;

  /// Every control in the order of the tree, with what stands in hosting views.
  std::vector<kit::Control*> controls() const;

  /// Called at the end of each settling that made a new layout necessary.
  void setLayoutAction(kit::Action action) { layoutAction_ = std::move(action); }

  // For nodes.

  void addDirty(std::weak_ptr<MountedNode> node) { dirty_.push_back(std::move(node)); }
  /// Runs after the pass that is under way: a handler sees the tree in line.
  void addHandler(kit::Action handler) { handlers_.push_back(std::move(handler)); }
  void setNeedsLayout() { needsLayout_ = true; }

  bool settleStep() override;
  void settled() override;

 private:
  void fillMenu();

  kit::Turn& turn_;
  kit::Host* host_ = nullptr;
  kit::Peer* rootPeer_ = nullptr;
  kit::Menu* menu_ = nullptr;
  std::shared_ptr<MountedNode> root_;
  std::vector<std::weak_ptr<MountedNode>> dirty_;
  std::vector<kit::Action> handlers_;
  kit::Action layoutAction_;
  bool shown_ = false;
  bool needsLayout_ = false;
};

}  // namespace tarnwell::view
