#include "host/qt/look/Picture.h"

#include <QtGui/QPainter>
#include <QtGui/QPicture>

namespace tarnwell::host_qt {

QPixmap pictureOf(const QString& resource, int side) {
  QPixmap pixmap(side, side);
  pixmap.fill(Qt::transparent);
  QPicture drawing;
  if (drawing.load(resource)) {
    QPainter painter(&pixmap);
    painter.scale(side, side);
    painter.drawPicture(0, 0, drawing);
  }
  return pixmap;
}

}  // namespace tarnwell::host_qt
