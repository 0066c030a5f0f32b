#include "kit/controls/Box.h"

#include "kit/host/Host.h"

namespace tarnwell::kit {

std::unique_ptr<Peer> Box::makePeer(Host& host, Peer& parent) { return host.peer(*this, parent); }

}  // namespace tarnwell::kit
