#include "kit/controls/SymbolView.h"

#include <utility>

#include "kit/host/Host.h"

namespace tarnwell::kit {

void SymbolView::setSymbol(std::string name) {
  if (name != symbol_) {
    symbol_ = std::move(name);
    changed(Aspect::value);
  }
}

void SymbolView::setSide(double side) {
  if (std::exchange(side_, side) != side) {
    changed(Aspect::style);
  }
}

void SymbolView::setColor(ColorRole color) {
  if (std::exchange(color_, color) != color) {
    changed(Aspect::style);
  }
}

std::unique_ptr<Peer> SymbolView::makePeer(Host& host, Peer& parent) { return host.peer(*this, parent); }

Accessible SymbolView::ownAccessible() const {
  return {.role = accessibleName().empty() ? AccessibleRole::decoration : AccessibleRole::image};
}

}  // namespace tarnwell::kit
