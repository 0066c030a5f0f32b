#include "host/macos/controls/ControlPeers.h"
#include "host/macos/controls/ViewPeer.h"
#include "kit/controls/containers/Box.h"

namespace tarnwell::host_macos {
namespace {

constexpr double groupRadius = 6;
constexpr double lineHeight = 1;

void showGround(NSBox* box, NSColor* fill, NSColor* border, double radius) {
  [box setBoxType:NSBoxCustom];
  [box setFillColor:fill];
  [box setBorderColor:border];
  [box setBorderWidth:1];
  [box setCornerRadius:radius];
}

NSBox* makeBox(kit::Box::Kind kind) {
  NSBox* box = makeView<NSBox>();
  [box setTitlePosition:NSNoTitle];
  switch (kind) {
    case kit::Box::Kind::group:
      showGround(box, [NSColor quaternarySystemFillColor], [NSColor separatorColor], groupRadius);
      break;
    case kit::Box::Kind::separator:
      [box setBoxType:NSBoxSeparator];
      break;
    case kit::Box::Kind::field:
      showGround(box, [NSColor textBackgroundColor], [NSColor separatorColor], 0);
      break;
  }
  return box;
}

class BoxPeer final : public PeerOf<kit::Box, NSBox> {
 public:
  BoxPeer(kit::Box& box, NSView* parent) : PeerOf(box, makeBox(box.kind()), parent) {
    // Under what stands on it, which may have been there first.
    [parent addSubview:view() positioned:NSWindowBelow relativeTo:nil];
  }

  // A line is as thick as it is; a ground is as large as what stands on it.
  std::optional<kit::Measurement> measure(kit::Proposal proposal) const override {
    if (control().kind() != kit::Box::Kind::separator) {
      return std::nullopt;
    }
    return kit::Measurement{.size = {.width = proposal.width.value_or(0), .height = lineHeight}};
  }
};

}  // namespace

std::unique_ptr<kit::Peer> makePeer(kit::Box& box, NSView* parent) { return std::make_unique<BoxPeer>(box, parent); }

}  // namespace tarnwell::host_macos
