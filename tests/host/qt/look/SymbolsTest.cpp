#include "host/qt/look/Symbols.h"

#include <gtest/gtest.h>

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <string>

#include "host/qt/look/Outline.h"

namespace tarnwell::host_qt {
namespace {

QImage drawn(Symbols& symbols, const std::string& name, const QColor& color, double scale = 1) {
  QImage sheet((QSizeF(20, 20) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
  sheet.setDevicePixelRatio(scale);
  sheet.fill(Qt::transparent);
  QPainter painter(&sheet);
  symbols.draw(painter, name, {1, 1, 18, 18}, color);
  return sheet;
}

int inkedPixels(const QImage& image) {
  int inked = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      inked += image.pixelColor(x, y).alpha() > 0 ? 1 : 0;
    }
  }
  return inked;
}

TEST(SymbolsTest, haveAPictureInTheColourOfTheText) {
  Symbols symbols;
  const QColor color(200, 30, 60);
  EXPECT_GE(outlines().size(), 17U);
  for (const auto& [key, outline] : outlines()) {
    const std::string name(key);
    const QImage image = drawn(symbols, name, color);
    EXPECT_GT(inkedPixels(image), 20) << name;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        ASSERT_TRUE(image.pixelColor(x, y).alpha() != 255 || image.pixelColor(x, y) == color) << name;
      }
    }
  }
}

TEST(SymbolsTest, sharpensWithTheScreen) {
  Symbols symbols;
  const int once = inkedPixels(drawn(symbols, "gear", Qt::black));
  EXPECT_GT(inkedPixels(drawn(symbols, "gear", Qt::black, 2)), 3 * once);
}

TEST(SymbolsTest, missingOneDrawsNothingAndIsReportedOnce) {
  Symbols symbols;
  testing::internal::CaptureStderr();
  EXPECT_EQ(inkedPixels(drawn(symbols, "no.such", Qt::black)), 0);
  drawn(symbols, "no.such", Qt::black);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "tarnwell: there is no picture of the symbol \"no.such\"\n");
}

TEST(SymbolsTest, emptyNameIsNoMistake) {
  Symbols symbols;
  testing::internal::CaptureStderr();
  EXPECT_EQ(inkedPixels(drawn(symbols, "", Qt::black)), 0);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace tarnwell::host_qt
