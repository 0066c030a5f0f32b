#include "host/qt/menus/ItemLine.h"

#include <QtGui/QPainter>

#include "host/painted/ControlMetrics.h"
#include "host/qt/look/Theme.h"
#include "host/qt/look/WrappedText.h"

namespace tarnwell::host_qt {
namespace {

WrappedText titleOf(const kit::PopUpButton::Item& item, const Theme& theme) {
  return {item.title, theme.font(kit::FontRole::body), std::nullopt};
}

}  // namespace

void drawItemLine(QPainter& painter, const kit::PopUpButton::Item& item, const QRectF& line, const QColor& color,
                  const Theme& theme) {
  const WrappedText title = titleOf(item, theme);
  painter.setPen(color);
  title.draw(painter, {line.left(), title.topAround(line.center().y())});
  const double side = host_painted::metrics::popUpSymbolSide;
  const QRectF symbol(line.left() + title.size().width() + host_painted::metrics::popUpGap,
                      line.center().y() - side / 2, side, side);
  theme.symbols().draw(painter, item.symbol, symbol, color);
}

double itemLineWidth(const kit::PopUpButton::Item& item, const Theme& theme) {
  const double symbol =
      item.symbol.empty() ? 0 : host_painted::metrics::popUpGap + host_painted::metrics::popUpSymbolSide;
  return titleOf(item, theme).size().width() + symbol;
}

}  // namespace tarnwell::host_qt
