#include "host/qt/look/ApplicationIcon.h"

#include <array>
#include <cmath>

#include <QtCore/QResource>

#include "host/qt/look/Drawing.h"

namespace tarnwell::host_qt {
namespace {

constexpr std::array<int, 4> sides = {16, 32, 48, 128};

QPixmap pixelsOf(int side) {
  const QResource pixels(QStringLiteral(":/icons/%1.pixels").arg(side));
  return QPixmap::fromImage(QImage(pixels.data(), side, side, QImage::Format_ARGB32_Premultiplied));
}

}  // namespace

QIcon applicationIcon() {
  QIcon icon;
  for (const int side : sides) {
    icon.addPixmap(pixelsOf(side));
  }
  return icon;
}

QPixmap applicationPicture(int points, double scale) {
  QPixmap picture =
      pictureOf(QStringLiteral(":/icons/tarnwell.picture"), static_cast<int>(std::lround(points * scale)));
  picture.setDevicePixelRatio(scale);
  return picture;
}

}  // namespace tarnwell::host_qt
