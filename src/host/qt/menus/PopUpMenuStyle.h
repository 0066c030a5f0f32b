#pragma once

#include <QtWidgets/QProxyStyle>

namespace tarnwell::host_qt {

/// The measures of a menu that paints its own rows.
class PopUpMenuStyle final : public QProxyStyle {
 public:
  PopUpMenuStyle(QSize row, int margin) : row_(row), margin_(margin) {}

  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;

 private:
  QSize row_;
  int margin_;
};

}  // namespace tarnwell::host_qt
