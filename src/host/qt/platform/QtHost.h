#pragma once

#include <map>
#include <optional>
#include <string>
#include <tuple>

#include "host/painted/PaintingHost.h"
#include "host/qt/look/Theme.h"
#include "host/qt/window/ApplicationEventFilter.h"
#include "host/qt/window/WindowPeer.h"

namespace tarnwell::host_qt {

/// A Linux desktop. Needs the toolkit's application object, and must outlive the peers that it makes.
class QtHost final : public host_painted::PaintingHost {
 public:
  QtHost();

  std::unique_ptr<kit::WindowPeer> peer(kit::Window& window) override;
  std::unique_ptr<kit::Peer> peer(kit::AnyControl control, kit::Peer& parent) override;

  kit::Measurement measureText(std::string_view text, kit::FontRole font, std::optional<double> width) const override;
  double capHeight(kit::FontRole font) const override;

  void setKeyEquivalents(KeyEquivalents equivalents) { keyEquivalents_ = std::move(equivalents); }

  /// Asked for what stands in each new window beside its content; nothing for none.
  using ChromeMaker = std::function<std::optional<WindowChrome>(kit::Window& window, QWidget& parent)>;
  void setChromeMaker(ChromeMaker maker) { makeChrome_ = std::move(maker); }

  /// Run when the user has changed the desktop's font: every measurement is out of date.
  void setMetricsChanged(kit::Action action) { metricsChanged_ = std::move(action); }

  Theme& theme() { return theme_; }

 private:
  /// A text, in a font, within a width.
  using Asked = std::tuple<std::string, kit::FontRole, std::optional<double>>;

  void fontChanged();

  Theme theme_;
  mutable std::map<Asked, kit::Measurement> measured_;
  KeyEquivalents keyEquivalents_;
  ApplicationEventFilter input_;
  ChromeMaker makeChrome_;
  kit::Action metricsChanged_;
};

}  // namespace tarnwell::host_qt
