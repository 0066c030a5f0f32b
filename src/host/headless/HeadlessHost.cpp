#include "host/headless/HeadlessHost.h"

#include <algorithm>
#include <cmath>

#include "host/headless/HeadlessWindowPeer.h"
#include "host/headless/JournalPeer.h"
#include "host/painted/PaintedPeer.h"
#include "kit/controls/Box.h"
#include "kit/controls/Button.h"
#include "kit/controls/Pane.h"
#include "kit/controls/PopUpButton.h"
#include "kit/controls/ProgressBar.h"
#include "kit/controls/RichText.h"
#include "kit/controls/ScrollArea.h"
#include "kit/controls/Slider.h"
#include "kit/controls/Stepper.h"
#include "kit/controls/SymbolView.h"
#include "kit/controls/TabBar.h"
#include "kit/controls/TextField.h"
#include "kit/controls/TextLabel.h"
#include "kit/controls/Toggle.h"

namespace tarnwell::host_headless {
namespace {

struct FontMetrics {
  double characterWidth = 0;
  double lineHeight = 0;
  double baseline = 0;
  double capHeight = 0;
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

class ControlPeer : public JournalPeer {
 public:
  ControlPeer(const kit::Control& control, Journal& journal, const std::string& kind)
      : JournalPeer(journal, [&control, kind] {
          return control.accessibleName().empty() ? kind : kind + " \"" + control.accessibleName() + "\"";
        }) {}
};

}  // namespace

std::unique_ptr<kit::WindowPeer> HeadlessHost::peer(kit::Window& window) {
  return std::make_unique<HeadlessWindowPeer>(journal_, window, screen_);
}

std::unique_ptr<kit::Peer> HeadlessHost::peer(kit::Box& box, kit::Peer& /*parent*/) {
  return std::make_unique<ControlPeer>(box, journal_, "box");
}

std::unique_ptr<kit::Peer> HeadlessHost::peer(kit::Button& button, kit::Peer& /*parent*/) {
  return host_painted::paintedPeer<ControlPeer>(button, *this, journal_, "button");
}

std::unique_ptr<kit::Peer> HeadlessHost::peer(kit::Pane& pane, kit::Peer& /*parent*/) {
  return std::make_unique<ControlPeer>(pane, journal_, "pane");
}

std::unique_ptr<kit::Peer> HeadlessHost::peer(kit::PopUpButton& button, kit::Peer& /*parent*/) {
  return host_painted::paintedPeer<ControlPeer>(button, *this, journal_, "pop-up button");
}

std::unique_ptr<kit::Peer> HeadlessHost::peer(kit::ProgressBar& bar, kit::Peer& /*parent*/) {
  return host_painted::paintedPeer<ControlPeer>(bar, *this, journal_, "progress bar");
}

std::unique_ptr<kit::Peer> HeadlessHost::peer(kit::RichText& text, kit::Peer& /*parent*/) {
  return host_painted::paintedPeer<ControlPeer>(text, *this, journal_, "rich text");
}

std::unique_ptr<kit::Peer> HeadlessHost::peer(kit::ScrollArea& area, kit::Peer& /*parent*/) {
  return std::make_unique<ControlPeer>(area, journal_, "scroll area");
}

std::unique_ptr<kit::Peer> HeadlessHost::peer(kit::Slider& slider, kit::Peer& /*parent*/) {
  return host_painted::paintedPeer<ControlPeer>(slider, *this, journal_, "slider");
}

std::unique_ptr<kit::Peer> HeadlessHost::peer(kit::Stepper& stepper, kit::Peer& /*parent*/) {
  return host_painted::paintedPeer<ControlPeer>(stepper, *this, journal_, "stepper");
}

std::unique_ptr<kit::Peer> HeadlessHost::peer(kit::SymbolView& symbol, kit::Peer& /*parent*/) {
  return host_painted::paintedPeer<ControlPeer>(symbol, *this, journal_, "symbol");
}

std::unique_ptr<kit::Peer> HeadlessHost::peer(kit::TabBar& bar, kit::Peer& /*parent*/) {
  return host_painted::paintedPeer<ControlPeer>(bar, *this, journal_, "tabs");
}

std::unique_ptr<kit::Peer> HeadlessHost::peer(kit::TextField& field, kit::Peer& /*parent*/) {
  return host_painted::paintedPeer<ControlPeer>(field, *this, journal_, "field");
}

std::unique_ptr<kit::Peer> HeadlessHost::peer(kit::TextLabel& label, kit::Peer& /*parent*/) {
  return host_painted::paintedPeer<ControlPeer>(label, *this, journal_, "text");
}

std::unique_ptr<kit::Peer> HeadlessHost::peer(kit::Toggle& toggle, kit::Peer& /*parent*/) {
  return host_painted::paintedPeer<ControlPeer>(toggle, *this, journal_, "switch");
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
