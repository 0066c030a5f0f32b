#include "standin/dock/ui/look/Panel.h"

#include <QtGui/QPainterPath>
#include <algorithm>
#include <cmath>

namespace tarnwell::standin {

void paintPanel(QPainter& painter, const QRectF& place, double radius, const QColor& glass, const Look& look,
                const QPixmap& behind) {
  painter.setPen(Qt::NoPen);
  if (!behind.isNull()) {
    QPainterPath path;
    path.addRoundedRect(place, radius, radius);
    painter.fillPath(path, QBrush(behind));
  }
  painter.setBrush(glass);
  painter.drawRoundedRect(place, radius, radius);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(look.shelfRim, 1));
  painter.drawRoundedRect(place.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);
  painter.setPen(QPen(look.shelfShine, 1));
  painter.drawRoundedRect(place.adjusted(1.5, 1.5, -1.5, -1.5), radius - 1.5, radius - 1.5);
}

QRegion panelRegion(const QRectF& place, double radius) {
  QRegion region = place.adjusted(0, radius, 0, -radius).toAlignedRect();
  for (int line = 0; line < radius; ++line) {
    const double rise = radius - std::min(line + 1.0, radius);
    const double inset = radius - std::sqrt(radius * radius - rise * rise);
    region += place.adjusted(inset, line, -inset, -line).toAlignedRect();
  }
  return region;
}

}  // namespace tarnwell::standin
