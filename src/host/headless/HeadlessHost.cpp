#include "host/headless/HeadlessHost.h"

#include <algorithm>
#include <cmath>

#include "host/headless/HeadlessWindowPeer.h"
#include "host/headless/JournalPeer.h"
#include "host/painted/PaintedPeer.h"
#include "kit/controls/buttons/Button.h"
#include "kit/controls/buttons/Toggle.h"
#include "kit/controls/choices/PopUpButton.h"
#include "kit/controls/choices/TabBar.h"
#include "kit/controls/containers/Box.h"
#include "kit/controls/containers/Pane.h"
#include "kit/controls/containers/ScrollArea.h"
#include "kit/controls/ranges/ProgressBar.h"
#include "kit/controls/ranges/Slider.h"
#include "kit/controls/ranges/Stepper.h"
#include "kit/controls/text/RichText.h"
#include "kit/controls/text/SymbolView.h"
#include "kit/controls/text/TextField.h"
#include "kit/controls/text/TextLabel.h"

namespace tarnwell::host_headless {
namespace {

struct FontMetrics {
  double characterWidth;
  double lineHeight;
  double baseline;
  double capHeight;
};

FontMetrics metricsOf(kit::FontRole font) {
  switch (font) {
    case kit::FontRole::body:
      return {.characterWidth = 7, .lineHeight = 16, .baseline = 12, .capHeight = 9};
    case kit::FontRole::subheadline:
      return {.characterWidth = 6, .lineHeight = 14, .baseline = 11, .capHeight = 8};
    case kit::FontRole::caption:
      return {.characterWidth = 5, .lineHeight = 12, .baseline = 9, .capHeight = 7};
    case kit::FontRole::headline:
      return {.characterWidth = 8, .lineHeight = 18, .baseline = 14, .capHeight = 10};
    case kit::FontRole::title:
      return {.characterWidth = 10, .lineHeight = 22, .baseline = 17, .capHeight = 13};
  }
  return {};
}

// Code points, not bytes: an accent is no wider than its letter.
double characters(std::string_view utf8) {
  return static_cast<double>(
      std::ranges::count_if(utf8, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

/// Goes by its kind, and the control's accessible name once it has one.
class ControlPeer : public JournalPeer {
 public:
  ControlPeer(const kit::Control& control, Journal& journal, const char* kind)
      : JournalPeer(journal, nameOf(control, kind)), control_(control), kind_(kind) {}

  void show(kit::Aspect aspect) noexcept override {
    if (aspect == kit::Aspect::accessibleName) {
      rename(nameOf(control_, kind_));
    }
    JournalPeer::show(aspect);
  }

 private:
  static std::string nameOf(const kit::Control& control, const char* kind) {
    return control.accessibleName().empty() ? kind : std::string(kind) + " \"" + control.accessibleName() + "\"";
  }

  const kit::Control& control_;
  const char* kind_;
};

/// The peer of each kind of control, under the name that it has in the journal.
struct PeerMaker {
  auto operator()(kit::Box* control) const { return container(*control, "box"); }
  auto operator()(kit::Button* control) const { return painted(*control, "button"); }
  auto operator()(kit::Pane* control) const { return container(*control, "pane"); }
  auto operator()(kit::PopUpButton* control) const { return painted(*control, "pop-up button"); }
  auto operator()(kit::ProgressBar* control) const { return painted(*control, "progress bar"); }
  auto operator()(kit::RichText* control) const { return painted(*control, "rich text"); }
  auto operator()(kit::ScrollArea* control) const { return container(*control, "scroll area"); }
  auto operator()(kit::Slider* control) const { return painted(*control, "slider"); }
  auto operator()(kit::Stepper* control) const { return painted(*control, "stepper"); }
  auto operator()(kit::SymbolView* control) const { return painted(*control, "symbol"); }
  auto operator()(kit::TabBar* control) const { return painted(*control, "tabs"); }
  auto operator()(kit::TextField* control) const { return painted(*control, "field"); }
  auto operator()(kit::TextLabel* control) const { return painted(*control, "text"); }
  auto operator()(kit::Toggle* control) const { return painted(*control, "switch"); }

  std::unique_ptr<kit::Peer> container(kit::Control& control, const char* kind) const {
    return std::make_unique<ControlPeer>(control, host.journal(), kind);
  }

  template <class C>
  std::unique_ptr<kit::Peer> painted(C& control, const char* kind) const {
    return host_painted::paintedPeer<ControlPeer>(control, host, host.journal(), kind);
  }

  HeadlessHost& host;
};

}  // namespace

std::unique_ptr<kit::WindowPeer> HeadlessHost::peer(kit::Window& window) {
  return std::make_unique<HeadlessWindowPeer>(journal_, window, screen_);
}

std::unique_ptr<kit::Peer> HeadlessHost::peer(kit::AnyControl control, kit::Peer& /*parent*/) {
  return std::visit(PeerMaker{*this}, control);
}

kit::Measurement HeadlessHost::measureText(std::string_view text, kit::FontRole font,
                                           std::optional<double> width) const {
  const FontMetrics metrics = metricsOf(font);
  const double natural = characters(text) * metrics.characterWidth;
  // Broken anywhere: the last line is as full as the others.
  const double room = std::max(metrics.characterWidth, width.value_or(natural));
  const double lines = std::max(1.0, std::ceil(natural / room));
  return {.size = {.width = std::min(natural, room), .height = lines * metrics.lineHeight},
          .firstBaseline = metrics.baseline};
}

double HeadlessHost::capHeight(kit::FontRole font) const { return metricsOf(font).capHeight; }

}  // namespace tarnwell::host_headless
