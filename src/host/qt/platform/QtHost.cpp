#include "host/qt/platform/QtHost.h"

#include <QtGui/QFontMetricsF>
#include <QtWidgets/QApplication>

#include "host/painted/PaintedPeer.h"
#include "host/qt/accessibility/Accessibility.h"
#include "host/qt/control/ControlLink.h"
#include "host/qt/controls/ControlWidgets.h"
#include "host/qt/controls/choices/PopUpButtonPeer.h"
#include "host/qt/controls/containers/ScrollAreaPeer.h"
#include "host/qt/controls/text/RichTextPeer.h"
#include "host/qt/look/WrappedText.h"
#include "host/qt/window/WindowPeer.h"
#include "kit/controls/buttons/Button.h"
#include "kit/controls/buttons/Toggle.h"
#include "kit/controls/choices/TabBar.h"
#include "kit/controls/containers/Box.h"
#include "kit/controls/containers/Pane.h"
#include "kit/controls/ranges/ProgressBar.h"
#include "kit/controls/ranges/Slider.h"
#include "kit/controls/ranges/Stepper.h"
#include "kit/controls/text/SymbolView.h"
#include "kit/controls/text/TextField.h"
#include "kit/controls/text/TextLabel.h"

namespace tarnwell::host_qt {
namespace {

// A window asks for each of its texts several times before it is shown. What is typed would fill a memory without end.
constexpr std::size_t mostMeasured = 500;

using Made = std::unique_ptr<kit::Peer>;

/// A widget of natural size, but for what needs more.
struct PeerMaker {
  template <class C>
  Made operator()(C* control) const {
    return painted<WidgetPeer>(*control, makeWidget(*control, theme, parent));
  }

  Made operator()(kit::Box* box) const { return container(*box); }
  Made operator()(kit::Pane* pane) const { return container(*pane); }
  Made operator()(kit::PopUpButton* button) const { return painted<PopUpButtonPeer>(*button, theme, parent); }
  Made operator()(kit::RichText* text) const { return std::make_unique<RichTextPeer>(*text, theme, parent); }
  Made operator()(kit::ScrollArea* area) const { return std::make_unique<ScrollAreaPeer>(*area, theme, parent); }

  template <class C>
  Made container(C& control) const {
    return std::make_unique<WidgetPeer>(control, makeWidget(control, theme, parent));
  }

  template <class P, class C, class... Rest>
  Made painted(C& control, Rest&&... rest) const {
    return host_painted::paintedPeer<P>(control, measurer, std::forward<Rest>(rest)...);
  }

  const host_painted::TextMeasurer& measurer;
  const Theme& theme;
  QWidget* parent;
};

}  // namespace

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

std::unique_ptr<kit::Peer> QtHost::peer(kit::AnyControl control, kit::Peer& parent) {
  return std::visit(PeerMaker{*this, theme_, Container::contentOf(parent)}, control);
}

kit::Measurement QtHost::measureText(std::string_view text, kit::FontRole font, std::optional<double> width) const {
  Asked asked(text, font, width);
  if (const auto found = measured_.find(asked); found != measured_.end()) {
    return found->second;
  }
  if (measured_.size() == mostMeasured) {
    measured_.clear();
  }
  const WrappedText lines(text, theme_.font(font), width);
  return measured_[std::move(asked)] = {.size = {.width = lines.size().width(), .height = lines.size().height()},
                                        .firstBaseline = lines.firstBaseline()};
}

double QtHost::capHeight(kit::FontRole font) const { return QFontMetricsF(theme_.font(font)).capHeight(); }

void QtHost::fontChanged() {
  theme_.takeApplicationFont();
  measured_.clear();
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
