#include "host/qt/panels/PanelFocus.h"

#include <QtGui/QPainter>

#include "host/qt/look/Theme.h"

namespace tarnwell::host_qt {

bool isFromKeyboard(Qt::FocusReason reason) {
  return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
}

void drawPanelRing(QPainter& painter, const QRectF& face, double radius, const Theme& theme) {
  constexpr double half = panelRing / 2.0;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(theme.palette().focusRing, panelRing));
  painter.drawRoundedRect(face.adjusted(-half, -half, half, half), radius + half, radius + half);
}

}  // namespace tarnwell::host_qt
