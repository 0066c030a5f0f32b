#include "host/qt/QtHost.h"

#include <QtGui/QFontMetricsF>
#include <QtWidgets/QApplication>

#include "host/painted/PaintedPeer.h"
#include "host/qt/accessibility/Accessibility.h"
#include "host/qt/controls/BoxPeer.h"
#include "host/qt/controls/ButtonPeer.h"
#include "host/qt/controls/ControlLink.h"
#include "host/qt/controls/PanePeer.h"
#include "host/qt/controls/PopUpButtonPeer.h"
#include "host/qt/controls/ScrollAreaPeer.h"
#include "host/qt/controls/SliderPeer.h"
#include "host/qt/controls/StepperPeer.h"
#include "host/qt/controls/SymbolViewPeer.h"
#include "host/qt/controls/TabBarPeer.h"
#include "host/qt/controls/TextFieldPeer.h"
#include "host/qt/controls/TextLabelPeer.h"
#include "host/qt/controls/TogglePeer.h"
#include "host/qt/look/WrappedText.h"
#include "host/qt/window/WindowPeer.h"

namespace tarnwell::host_qt {

QtHost::QtHost() : input_(theme_) {
  installAccessibility();
  input_.setFontChanged([this] { fontChanged(); });
}

std::unique_ptr<kit::WindowPeer> QtHost::peer(kit::Window& window) {
  auto peer = std::make_unique<WindowPeer>(window, keys_);
  if (const auto chrome = makeChrome_ ? makeChrome_(window, *peer->widget()) : std::nullopt) {
    peer->setChrome(*chrome);
  }
  return peer;
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::Box& box, kit::Peer& parent) {
  return std::make_unique<BoxPeer>(box, theme_, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::Button& button, kit::Peer& parent) {
  return host_painted::paintedPeer<ButtonPeer>(button, *this, theme_, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::Pane& pane, kit::Peer& parent) {
  return std::make_unique<PanePeer>(pane, theme_, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::PopUpButton& button, kit::Peer& parent) {
  return host_painted::paintedPeer<PopUpButtonPeer>(button, *this, theme_, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::ScrollArea& area, kit::Peer& parent) {
  return std::make_unique<ScrollAreaPeer>(area, theme_, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::Slider& slider, kit::Peer& parent) {
  return host_painted::paintedPeer<SliderPeer>(slider, *this, theme_, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::Stepper& stepper, kit::Peer& parent) {
  return host_painted::paintedPeer<StepperPeer>(stepper, *this, theme_, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::SymbolView& symbol, kit::Peer& parent) {
  return host_painted::paintedPeer<SymbolViewPeer>(symbol, *this, theme_, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::TabBar& bar, kit::Peer& parent) {
  return host_painted::paintedPeer<TabBarPeer>(bar, *this, theme_, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::TextField& field, kit::Peer& parent) {
  return host_painted::paintedPeer<TextFieldPeer>(field, *this, theme_, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::TextLabel& label, kit::Peer& parent) {
  return host_painted::paintedPeer<TextLabelPeer>(label, *this, theme_, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::Toggle& toggle, kit::Peer& parent) {
  return host_painted::paintedPeer<TogglePeer>(toggle, *this, theme_, Container::contentOf(parent));
}

kit::Measurement QtHost::measureText(std::string_view text, kit::FontRole font, std::optional<double> width) const {
  const WrappedText lines(text, theme_.font(font), width);
  return {.size = {.width = lines.size().width(), .height = lines.size().height()},
          .firstBaseline = lines.firstBaseline()};
}

double QtHost::capHeight(kit::FontRole font) const { return QFontMetricsF(theme_.font(font)).capHeight(); }

void QtHost::fontChanged() {
  theme_.takeApplicationFont();
  for (QWidget* widget : QApplication::allWidgets()) {
    if (ControlLink* link = ControlLink::of(widget); link != nullptr && link->control() != nullptr) {
      link->fontsChanged();
    }
  }
  if (metricsChanged_) {
    metricsChanged_();
  }
}

}  // namespace tarnwell::host_qt
