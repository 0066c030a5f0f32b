#pragma once

#include <QtWidgets/QProxyStyle>

class QStyleOptionMenuItem;

namespace tarnwell::host_qt {

class Theme;

/// How the menu bar and the menus below it look: the colours of the theme, round corners, the key equivalents at the
/// right edge.
class ThemedMenuStyle final : public QProxyStyle {
 public:
  /// The theme is borrowed and outlives the look.
  explicit ThemedMenuStyle(const Theme& theme) : theme_(theme) {}

  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* result) const override;

 private:
  void drawTitle(QPainter& painter, const QStyleOptionMenuItem& option) const;
  void drawRow(QPainter& painter, const QStyleOptionMenuItem& option) const;
  void drawSeparator(QPainter& painter, const QRectF& row) const;
  void drawHighlight(QPainter& painter, const QRectF& shape, const QColor& color) const;

  const Theme& theme_;
};

}  // namespace tarnwell::host_qt
