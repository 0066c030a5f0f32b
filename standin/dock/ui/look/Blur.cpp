#include "standin/dock/ui/look/Blur.h"

#include <QtGui/QImage>

namespace tarnwell::standin {

// Made small, and large again by halves: each step spreads the colours a little, where a single one would show corners.
QPixmap blurred(const QPixmap& picture) {
  constexpr int halvings = 5;
  const QImage image = picture.toImage().convertToFormat(QImage::Format_RGB32);
  QImage soft = image;
  for (int level = halvings; level >= 0; --level) {
    const QSize size = (image.size() / (1 << level)).expandedTo({2, 2});
    soft = soft.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  }
  QPixmap result = QPixmap::fromImage(soft);
  result.setDevicePixelRatio(picture.devicePixelRatio());
  return result;
}

}  // namespace tarnwell::standin
