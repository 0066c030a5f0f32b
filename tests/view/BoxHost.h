#pragma once

#include <vector>

#include "host/headless/HeadlessHost.h"
#include "kit/controls/containers/Box.h"

namespace tarnwell::view {

/// The platform in memory, which also knows the boxes that stand in it: no dump tells of them.
class BoxHost final : public host_headless::HeadlessHost {
 public:
  using HeadlessHost::peer;

  std::unique_ptr<kit::Peer> peer(kit::AnyControl control, kit::Peer& parent) override;

  /// The frames of the boxes of that kind, in the order in which they were made.
  std::vector<kit::Rect> boxes(kit::Box::Kind kind) const;
  /// How many there ever were.
  int boxesMade() const { return made_; }

 private:
  std::vector<const kit::Box*> boxes_;
  int made_ = 0;
};

}  // namespace tarnwell::view
