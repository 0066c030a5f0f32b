#include "kit/controls/PopUpButton.h"

#include <algorithm>
#include <utility>

#include "diagnostics/Fault.h"
#include "kit/controls/ControlMetrics.h"
#include "kit/host/Host.h"

namespace tarnwell::kit {

void PopUpButton::setItems(std::vector<Item> items) {
  if (items != items_) {
    items_ = std::move(items);
    selected_ = std::min(selected_, static_cast<int>(items_.size()) - 1);
    changed(Aspect::title);
  }
}

void PopUpButton::setSelectedIndex(int index) {
  if (index < -1 || index >= static_cast<int>(items_.size())) {
    diagnostics::fault("a pop-up button was told to select an item that it does not have");
  }
  if (std::exchange(selected_, index) != index) {
    changed(Aspect::value);
  }
}

void PopUpButton::choose(int index) {
  if (!isEnabled() || index == selected_) {
    return;
  }
  setSelectedIndex(index);
  send([action = action_, index] {
    if (action) {
      action(index);
    }
  });
}

std::unique_ptr<Peer> PopUpButton::makePeer(Host& host, Peer& parent) { return host.peer(*this, parent); }

Measurement PopUpButton::measure(const TextMeasurer& text, Proposal /*proposal*/) const {
  // As wide as the widest item, so that choosing another moves nothing.
  double widest = 0;
  for (const Item& item : items_) {
    const double symbol = item.symbol.empty() ? 0 : metrics::popUpGap + metrics::popUpSymbolSide;
    const double title = text.measureText(item.title, FontRole::body, std::nullopt).size.width;
    widest = std::max(widest, title + symbol);
  }
  const double height = std::max(metrics::buttonHeight, text.lineHeight(FontRole::body) + 2 * metrics::buttonPadding);
  return {.size = {.width = 2 * metrics::popUpInset + widest + metrics::popUpArrowWidth, .height = height},
          .firstBaseline = (height + text.capHeight(FontRole::body)) / 2};
}

}  // namespace tarnwell::kit
