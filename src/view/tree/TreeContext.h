#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "kit/turn/Action.h"

namespace tarnwell::kit {
class Host;
class Peer;
class Turn;
}  // namespace tarnwell::kit

namespace tarnwell::view {

class MountedNode;

/// What the nodes of a tree share: where they stand, and what they ask of the tree, which takes it when it settles.
class TreeContext {
 public:
  /// All is borrowed. In a menu host and peer are null.
  TreeContext(kit::Turn& turn, kit::Host* host, kit::Peer* rootPeer) : turn_(turn), host_(host), rootPeer_(rootPeer) {}

  kit::Turn& turn() const { return turn_; }
  bool isMenu() const { return host_ == nullptr; }
  /// Only in a window.
  kit::Host& host() const { return *host_; }
  kit::Peer& rootPeer() const { return *rootPeer_; }

  /// Of the window that the tree is mounted in, at that width, what is not the content's; 0 for any other place.
  double chromeHeight(double width) const;

  bool isShown() const { return shown_; }

  void addDirty(std::weak_ptr<MountedNode> node) { dirty_.push_back(std::move(node)); }
  /// Runs after the pass that is under way: a handler sees the tree in line.
  void addHandler(kit::Action handler) { handlers_.push_back(std::move(handler)); }
  void setNeedsLayout() { needsLayout_ = true; }

  // For the tree.

  /// Whether that is news.
  bool setShown(bool shown) { return std::exchange(shown_, shown) != shown; }
  std::vector<std::weak_ptr<MountedNode>> takeDirty() { return std::exchange(dirty_, {}); }
  std::vector<kit::Action> takeHandlers() { return std::exchange(handlers_, {}); }
  bool takeNeedsLayout() { return std::exchange(needsLayout_, false); }

 private:
  kit::Turn& turn_;
  kit::Host* host_;
  kit::Peer* rootPeer_;
  std::vector<std::weak_ptr<MountedNode>> dirty_;
  std::vector<kit::Action> handlers_;
  bool shown_ = false;
  bool needsLayout_ = false;
};

}  // namespace tarnwell::view
