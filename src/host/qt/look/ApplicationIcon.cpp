#include "host/qt/look/ApplicationIcon.h"

#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>
#include <array>
#include <cmath>

namespace tarnwell::host_qt {
namespace {

constexpr std::array<int, 4> sides = {16, 32, 48, 128};

}  // namespace

QIcon applicationIcon() {
  QIcon icon;
  for (const int side : sides) {
    icon.addPixmap(applicationPicture(side, 1));
  }
  return icon;
}

QPixmap applicationPicture(int points, double scale) {
  const int side = static_cast<int>(std::lround(points * scale));
  QPixmap picture(side, side);
  picture.fill(Qt::transparent);
  QSvgRenderer renderer(QStringLiteral(":/icons/application.svg"));
  QPainter painter(&picture);
  renderer.render(&painter, QRectF(0, 0, side, side));
  painter.end();
  picture.setDevicePixelRatio(scale);
  return picture;
}

}  // namespace tarnwell::host_qt
