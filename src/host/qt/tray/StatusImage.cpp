#include "host/qt/tray/StatusImage.h"

#include <QtCore/QtEndian>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <array>
#include <cstdint>

#include "host/qt/look/Theme.h"

namespace tarnwell::host_qt {
namespace {

constexpr std::array<int, 6> imageSides = {16, 22, 24, 32, 44, 48};
constexpr QRgb lightColor = 0xfff1f1f4;
constexpr QRgb darkColor = 0xff2b2b2f;

// Some desktops have a dark panel whatever the user prefers for windows.
bool panelIsAlwaysDark() {
  const QString desktop = qEnvironmentVariable("XDG_CURRENT_DESKTOP");
  return desktop.contains(QLatin1String("GNOME")) || desktop.contains(QLatin1String("Unity"));
}

QColor symbolColor(const Theme& theme) {
  const bool dark = panelIsAlwaysDark() || theme.colorScheme() == ColorScheme::dark;
  return QColor::fromRgb(dark ? lightColor : darkColor);
}

BusImage toBusImage(const QImage& image) {
  BusImage sent{.width = image.width(), .height = image.height()};
  sent.pixels.resize(image.sizeInBytes());
  qToBigEndian<std::uint32_t>(image.constBits(), image.sizeInBytes() / 4, sent.pixels.data());
  return sent;
}

}  // namespace

QIcon StatusImage::icon() const {
  QIcon icon;
  for (const int side : imageSides) {
    icon.addPixmap(QPixmap::fromImage(image(side)));
  }
  return icon;
}

QList<BusImage> StatusImage::forBus() const {
  QList<BusImage> images;
  for (const int side : imageSides) {
    images += toBusImage(image(side));
  }
  return images;
}

QImage StatusImage::image(int side) const {
  QImage image(side, side, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  theme_.symbols().draw(painter, symbol_, image.rect(), symbolColor(theme_));
  return image;
}

}  // namespace tarnwell::host_qt
