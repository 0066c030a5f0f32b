#include "host/macos/controls/ControlPeers.h"
#include "host/macos/controls/ViewPeer.h"
#include "host/macos/look/FlippedView.h"
#include "kit/controls/containers/Pane.h"

namespace tarnwell::host_macos {
namespace {

class PanePeer final : public PeerOf<kit::Pane, TWFlippedView> {
 public:
  PanePeer(kit::Pane& pane, NSView* parent) : PeerOf(pane, makeView<TWFlippedView>(), parent) {}

  std::optional<kit::Measurement> measure(kit::Proposal /*proposal*/) const override { return std::nullopt; }
};

}  // namespace

std::unique_ptr<kit::Peer> makePeer(kit::Pane& pane, NSView* parent) {
  return std::make_unique<PanePeer>(pane, parent);
}

}  // namespace tarnwell::host_macos
