#pragma once

#include "host/headless/HeadlessWindowPeer.h"
#include "host/headless/Journal.h"
#include "host/painted/PaintingHost.h"

namespace tarnwell::host_headless {

/// A platform in memory: its peers show nothing and note in a journal what they were told. Every character of a font
/// is equally wide, so that geometry can be asserted.
class HeadlessHost : public host_painted::PaintingHost {
 public:
  Journal& journal() { return journal_; }

  /// The tallest content of a window, in points.
  void setAvailableHeight(double height) { screen_.availableHeight = height; }
  void setChromeHeight(double height) { screen_.chromeHeight = height; }
  /// Told which window has the keyboard when that may have changed; null for none.
  void setKeyWindowAction(std::function<void(kit::Window*)> action) { screen_.keyWindowChanged = std::move(action); }

  std::unique_ptr<kit::WindowPeer> peer(kit::Window& window) override;
  std::unique_ptr<kit::Peer> peer(kit::AnyControl control, kit::Peer& parent) override;

  kit::Measurement measureText(std::string_view text, kit::FontRole font, std::optional<double> width) const override;
  double capHeight(kit::FontRole font) const override;

 private:
  Journal journal_;
  HeadlessWindowPeer::Screen screen_ = {};
};

}  // namespace tarnwell::host_headless
