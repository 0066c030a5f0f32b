#include "view/Block.h"

#include <algorithm>

namespace tarnwell::view {
namespace {

constexpr double anyLength = 1e6;

class SilentPeer final : public kit::Peer {
 public:
  void show(kit::Aspect /*aspect*/) noexcept override {}
  void place(const kit::Rect& /*frame*/) noexcept override {}
};

}  // namespace

void BlockControl::setSizes(const Sizes& sizes) {
  if (sizes != sizes_) {
    sizes_ = sizes;
    changed(kit::Aspect::style);
  }
}

std::unique_ptr<kit::Peer> BlockControl::makePeer(kit::Host& /*host*/, kit::Peer& /*parent*/) {
  return std::make_unique<SilentPeer>();
}

kit::Measurement BlockControl::sizeThatFits(kit::Proposal proposal) const {
  proposals_.push_back(proposal);
  const double width = proposal.width.value_or(sizes_.ideal.width);
  const double height = proposal.height.value_or(sizes_.ideal.height);
  return {.size = {.width = std::clamp(width, sizes_.least.width, sizes_.most.width),
                   .height = std::clamp(height, sizes_.least.height, sizes_.most.height)},
          .firstBaseline = sizes_.baseline};
}

std::unique_ptr<BlockControl> Block::makeNSView(Context& /*context*/) const { return std::make_unique<BlockControl>(); }

void Block::updateNSView(BlockControl& block, Context& /*context*/) const { block.setSizes(sizes); }

View fixedBlock(const std::string& name, double width, double height, double baseline) {
  return View(Block{.sizes = {.ideal = {.width = width, .height = height}, .baseline = baseline}})
      .accessibilityLabel(name);
}

View wideBlock(const std::string& name, double least, double height) {
  const kit::Size ideal{.width = least, .height = height};
  return View(Block{.sizes = {.ideal = ideal, .most = {.width = anyLength, .height = height}}})
      .accessibilityLabel(name);
}

View tallBlock(const std::string& name, double width, double idealHeight) {
  return View(Block{.sizes = {.ideal = {.width = width, .height = idealHeight},
                              .least = {.width = width, .height = 0},
                              .most = {.width = width, .height = anyLength}}})
      .accessibilityLabel(name);
}

}  // namespace tarnwell::view
