#include <cmath>

#include "host/macos/controls/ControlPeers.h"
#include "host/macos/controls/ViewPeer.h"
#include "host/macos/look/Conversions.h"
#include "host/macos/look/TextLook.h"
#include "kit/controls/text/TextLabel.h"

namespace tarnwell::host_macos {
namespace {

// Longer and higher than any text that is laid out.
constexpr double unlimited = 100000;

NSTextField* makeLabel() {
  NSTextField* label = [NSTextField wrappingLabelWithString:@""];
  [label setSelectable:NO];
  return label;
}

class TextLabelPeer final : public PeerOf<kit::TextLabel, NSTextField> {
 public:
  TextLabelPeer(kit::TextLabel& label, NSView* parent) : PeerOf(label, makeLabel(), parent) {}

  std::optional<kit::Measurement> measure(kit::Proposal proposal) const override {
    // As wide as the label would be around what is seen of the text, and back again.
    const NSRect room = NSMakeRect(0, 0, proposal.width.value_or(unlimited), unlimited);
    const NSSize cell = [[view() cell] cellSizeForBounds:[view() frameForAlignmentRect:room]];
    const NSRect seen = [view() alignmentRectForFrame:NSMakeRect(0, 0, cell.width, cell.height)];
    return kit::Measurement{
        .size = {.width = std::ceil(seen.size.width), .height = std::ceil(seen.size.height)},
        .firstBaseline = [view() firstBaselineOffsetFromTop],
    };
  }

 protected:
  void showState(kit::Aspect aspect) override {
    if (aspect == kit::Aspect::title) {
      [view() setStringValue:toNSString(control().text())];
    } else if (aspect == kit::Aspect::style) {
      [view() setFont:fontOf(control().style().font)];
      [view() setTextColor:colorOf(control().style().color)];
    }
  }
};

}  // namespace

std::unique_ptr<kit::Peer> makePeer(kit::TextLabel& label, NSView* parent) {
  return std::make_unique<TextLabelPeer>(label, parent);
}

}  // namespace tarnwell::host_macos
