#include "standin/dock/ui/Icons.h"

#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>
#include <cmath>

namespace tarnwell::standin {

const QPixmap& Icons::icon(const std::string& name, double points, double ratio) {
  const int pixels = static_cast<int>(std::lround(points * ratio));
  QPixmap& pixmap = drawn_[{name, pixels}];
  if (pixmap.isNull()) {
    pixmap = QPixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QSvgRenderer(QStringLiteral(":/dock/%1.svg").arg(QString::fromStdString(name))).render(&painter);
  }
  pixmap.setDevicePixelRatio(ratio);
  return pixmap;
}

}  // namespace tarnwell::standin
