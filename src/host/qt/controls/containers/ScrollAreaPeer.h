#pragma once

#include "host/qt/control/WidgetPeer.h"

namespace tarnwell::kit {
class ScrollArea;
}

namespace tarnwell::host_qt {

class Theme;

class ScrollAreaPeer final : public WidgetPeer {
 public:
  ScrollAreaPeer(kit::ScrollArea& area, const Theme& theme, QWidget* parent);

  QWidget* content() const override;

  /// Scrolls the area that `widget` stands in, if it stands in one, so that `part` of the widget can be seen.
  static void reveal(const QWidget& widget, const QRectF& part);

 protected:
  void placed() override;
};

}  // namespace tarnwell::host_qt
