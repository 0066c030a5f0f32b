#pragma once

#include "host/qt/control/WidgetPeer.h"
#include "kit/controls/text/RichText.h"

namespace tarnwell::host_qt {

class Theme;

class RichTextPeer final : public WidgetPeer {
 public:
  RichTextPeer(kit::RichText& text, const Theme& theme, QWidget* parent);

  /// As high as its width makes it, or as there is room.
  std::optional<kit::Measurement> measure(kit::Proposal proposal) const override;
};

}  // namespace tarnwell::host_qt
