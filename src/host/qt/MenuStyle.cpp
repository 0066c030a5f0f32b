#include "host/qt/MenuStyle.h"

namespace tarnwell::host_qt {

QSize MenuStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                  const QWidget* widget) const {
  return type == CT_MenuItem ? row_ : QProxyStyle::sizeFromContents(type, option, size, widget);
}

int MenuStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
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

int MenuStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* result) const {
  // Typing the first letters of a row goes there.
  return hint == SH_Menu_KeyboardSearch ? 1 : QProxyStyle::styleHint(hint, option, widget, result);
}

}  // namespace tarnwell::host_qt
