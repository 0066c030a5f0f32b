#include "host/qt/QtHost.h"

#include <QtGui/QFontMetricsF>
#include <QtWidgets/QApplication>

#include "host/painted/PaintedPeer.h"
#include "host/qt/accessibility/Accessibility.h"
#include "host/qt/controls/ControlLink.h"
#include "host/qt/controls/ControlWidgets.h"
#include "host/qt/controls/PopUpButtonPeer.h"
#include "host/qt/controls/RichTextPeer.h"
#include "host/qt/controls/ScrollAreaPeer.h"
#include "host/qt/controls/TextFieldPeer.h"
#include "host/qt/controls/TextLabelPeer.h"
#include "host/qt/look/WrappedText.h"
#include "host/qt/window/WindowPeer.h"
#include "kit/controls/Box.h"
#include "kit/controls/Button.h"
#include "kit/controls/Pane.h"
#include "kit/controls/ProgressBar.h"
#include "kit/controls/Slider.h"
#include "kit/controls/Stepper.h"
#include "kit/controls/SymbolView.h"
#include "kit/controls/TabBar.h"
#include "kit/controls/Toggle.h"

namespace tarnwell::host_qt {

QtHost::QtHost() : input_(theme_) {
  installAccessibility();
  input_.setFontChanged([this] { fontChanged(); });
}

std::unique_ptr<kit::WindowPeer> QtHost::peer(kit::Window& window) {
  auto peer = std::make_unique<WindowPeer>(window, keyEquivalents_);
  if (const auto chrome = makeChrome_ ? makeChrome_(window, *peer->widget()) : std::nullopt) {
    peer->setChrome(*chrome);
  }
  return peer;
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::Box& box, kit::Peer& parent) {
  return std::make_unique<WidgetPeer>(box, makeWidget(box, theme_, Container::contentOf(parent)));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::Button& button, kit::Peer& parent) {
  return host_painted::paintedPeer<WidgetPeer>(button, *this, makeWidget(button, theme_, Container::contentOf(parent)));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::Pane& pane, kit::Peer& parent) {
  return std::make_unique<WidgetPeer>(pane, makeWidget(pane, theme_, Container::contentOf(parent)));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::PopUpButton& button, kit::Peer& parent) {
  return host_painted::paintedPeer<PopUpButtonPeer>(button, *this, theme_, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::ProgressBar& bar, kit::Peer& parent) {
  return host_painted::paintedPeer<WidgetPeer>(bar, *this, makeWidget(bar, theme_, Container::contentOf(parent)));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::RichText& text, kit::Peer& parent) {
  return std::make_unique<RichTextPeer>(text, theme_, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::ScrollArea& area, kit::Peer& parent) {
  return std::make_unique<ScrollAreaPeer>(area, theme_, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::Slider& slider, kit::Peer& parent) {
  return host_painted::paintedPeer<WidgetPeer>(slider, *this, makeWidget(slider, theme_, Container::contentOf(parent)));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::Stepper& stepper, kit::Peer& parent) {
  return host_painted::paintedPeer<WidgetPeer>(stepper, *this,
                                               makeWidget(stepper, theme_, Container::contentOf(parent)));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::SymbolView& symbol, kit::Peer& parent) {
  return host_painted::paintedPeer<WidgetPeer>(symbol, *this, makeWidget(symbol, theme_, Container::contentOf(parent)));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::TabBar& bar, kit::Peer& parent) {
  return host_painted::paintedPeer<WidgetPeer>(bar, *this, makeWidget(bar, theme_, Container::contentOf(parent)));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::TextField& field, kit::Peer& parent) {
  return host_painted::paintedPeer<TextFieldPeer>(field, *this, theme_, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::TextLabel& label, kit::Peer& parent) {
  return host_painted::paintedPeer<TextLabelPeer>(label, *this, theme_, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> QtHost::peer(kit::Toggle& toggle, kit::Peer& parent) {
  return host_painted::paintedPeer<WidgetPeer>(toggle, *this, makeWidget(toggle, theme_, Container::contentOf(parent)));
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
