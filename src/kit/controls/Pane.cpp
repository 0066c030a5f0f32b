#include "kit/controls/Pane.h"

#include "kit/host/Host.h"

namespace tarnwell::kit {

std::unique_ptr<Peer> Pane::makePeer(Host& host, Peer& parent) { return host.peer(*this, parent); }

Measurement Pane::measure(const TextMeasurer& /*text*/, Proposal proposal) const {
  return {.size = {.width = proposal.width.value_or(0), .height = proposal.height.value_or(0)}};
}

}  // namespace tarnwell::kit
