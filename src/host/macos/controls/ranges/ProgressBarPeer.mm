#include "host/macos/controls/ControlPeers.h"
#include "host/macos/controls/ViewPeer.h"
#include "kit/controls/ranges/ProgressBar.h"

namespace tarnwell::host_macos {
namespace {

class ProgressBarPeer final : public PeerOf<kit::ProgressBar, NSProgressIndicator> {
 public:
  ProgressBarPeer(kit::ProgressBar& bar, NSView* parent) : PeerOf(bar, makeView<NSProgressIndicator>(), parent) {
    [view() setMinValue:0];
    [view() setMaxValue:1];
  }

 protected:
  void showState(kit::Aspect aspect) override {
    if (aspect != kit::Aspect::value) {
      return;
    }
    const auto share = control().share();
    [view() setIndeterminate:!share];
    [view() setDoubleValue:share.value_or(0)];
    if (share) {
      [view() stopAnimation:nil];
    } else {
      [view() startAnimation:nil];
    }
  }
};

}  // namespace

std::unique_ptr<kit::Peer> makePeer(kit::ProgressBar& bar, NSView* parent) {
  return std::make_unique<ProgressBarPeer>(bar, parent);
}

}  // namespace tarnwell::host_macos
