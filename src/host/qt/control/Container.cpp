#include "host/qt/control/Container.h"

#include "diagnostics/Fault.h"
#include "kit/host/Peer.h"

namespace tarnwell::host_qt {

QWidget* Container::contentOf(kit::Peer& peer) {
  const auto* container = dynamic_cast<const Container*>(&peer);
  if (container == nullptr) {
    diagnostics::fault("a control was put into a peer of another host");
  }
  return container->content();
}

}  // namespace tarnwell::host_qt
