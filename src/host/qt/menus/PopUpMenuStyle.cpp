#include "host/qt/menus/PopUpMenuStyle.h"

namespace tarnwell::host_qt {

QSize PopUpMenuStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                       const QWidget* widget) const {
  return type == CT_MenuItem ? row_ : QProxyStyle::sizeFromContents(type, option, size, widget);
}

int PopUpMenuStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  switch (metric) {
    case PM_MenuVMargin:
    case PM_MenuHMargin:
      return margin_;
    case PM_MenuPanelWidth:
      return 0;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

}  // namespace tarnwell::host_qt
