#pragma once

#include <memory>
#include <string>
#include <vector>

#include "kit/controls/containers/Pane.h"
#include "view/tree/Representable.h"

namespace tarnwell::view {

/// A control of any size, which notes what it was proposed.
class BlockControl final : public kit::Pane {
 public:
  /// How far it gives way to a proposal, in points.
  struct Sizes {
    kit::Size ideal = {.width = 10, .height = 10};
    kit::Size least = ideal;
    kit::Size most = ideal;
    double baseline = 0;
    friend bool operator==(const Sizes&, const Sizes&) = default;
  };

  const Sizes& sizes() const { return sizes_; }
  void setSizes(const Sizes& sizes);

  /// Every call of `measure` since the block was made.
  const std::vector<kit::Proposal>& proposals() const { return proposals_; }

  std::unique_ptr<kit::Peer> makePeer(kit::Host& host, kit::Peer& parent) override;

 protected:
  kit::Measurement sizeThatFits(kit::Proposal proposal) const override;

 private:
  Sizes sizes_;
  mutable std::vector<kit::Proposal> proposals_;
};

/// The view of one.
struct Block {
  struct Coordinator {};
  using NSView = BlockControl;
  using Context = RepresentableContext<Coordinator>;

  BlockControl::Sizes sizes = {};

  std::shared_ptr<Coordinator> makeCoordinator() const { return std::make_shared<Coordinator>(); }
  std::unique_ptr<BlockControl> makeNSView(Context& context) const;
  void updateNSView(BlockControl& block, Context& context) const;
};

// Blocks by the name under which a stage finds them.

View fixedBlock(const std::string& name, double width, double height, double baseline = 0);
/// Takes any width that it is offered, from `least` on.
View wideBlock(const std::string& name, double least, double height);
/// Takes any height that it is offered.
View tallBlock(const std::string& name, double width, double idealHeight);

}  // namespace tarnwell::view
