#include "host/qt/look/ApplicationIcon.h"

#include <gtest/gtest.h>

#include <QtGui/QImage>
#include <cmath>
#include <cstdlib>

namespace tarnwell::host_qt {
namespace {

double differenceOf(const QImage& one, const QImage& other) {
  double sum = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      const QColor a = one.pixelColor(x, y);
      const QColor b = other.pixelColor(x, y);
      sum += std::abs(a.alpha() - b.alpha()) + std::abs(a.red() - b.red()) + std::abs(a.blue() - b.blue());
    }
  }
  return sum / (one.width() * one.height());
}

TEST(ApplicationIconTest, isTheDrawingInEachSizeOfAWindow) {
  const QIcon icon = applicationIcon();
  EXPECT_EQ(icon.availableSizes().size(), 4);
  for (const QSize& size : icon.availableSizes()) {
    const QImage image = icon.pixmap(size).toImage();
    EXPECT_EQ(image.size(), size);
    EXPECT_LT(differenceOf(image, applicationPicture(size.width(), 1).toImage()), 3) << size.width();
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(image.pixelColor(size.width() / 4, size.height() / 4).alpha(), 255);
  }
}

}  // namespace
}  // namespace tarnwell::host_qt
