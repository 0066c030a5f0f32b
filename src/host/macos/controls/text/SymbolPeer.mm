#include "host/macos/controls/ControlPeers.h"
#include "host/macos/controls/ViewPeer.h"
#include "host/macos/look/Symbols.h"
#include "host/macos/look/TextLook.h"
#include "kit/controls/text/SymbolView.h"

namespace tarnwell::host_macos {
namespace {

class SymbolPeer final : public PeerOf<kit::SymbolView, NSImageView> {
 public:
  SymbolPeer(kit::SymbolView& symbol, NSView* parent) : PeerOf(symbol, makeView<NSImageView>(), parent) {}

  // Symbols are of different widths; here all have the same room.
  std::optional<kit::Measurement> measure(kit::Proposal /*proposal*/) const override {
    const double side = control().side();
    return kit::Measurement{.size = {.width = side, .height = side}, .firstBaseline = baselineBesideText(side)};
  }

 protected:
  void showState(kit::Aspect aspect) override {
    if (aspect == kit::Aspect::value) {
      [view() setImage:imageOf(control().symbol())];
    } else if (aspect == kit::Aspect::style) {
      const bool isIcon = control().symbol() == kit::SymbolView::applicationIcon;
      [view() setImageScaling:isIcon ? NSImageScaleProportionallyUpOrDown : NSImageScaleProportionallyDown];
      [view() setContentTintColor:isIcon ? nil : colorOf(control().color())];
    }
  }
};

}  // namespace

std::unique_ptr<kit::Peer> makePeer(kit::SymbolView& symbol, NSView* parent) {
  return std::make_unique<SymbolPeer>(symbol, parent);
}

}  // namespace tarnwell::host_macos
