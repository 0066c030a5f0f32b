#include "host/qt/look/Symbols.h"

#include <gtest/gtest.h>

#include <QtGui/QImage>
#include <QtGui/QPainter>

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

class SymbolTest : public testing::TestWithParam<const char*> {};

TEST_P(SymbolTest, hasAPicture) {
  Symbols symbols;
  EXPECT_GT(inkedPixels(drawn(symbols, GetParam(), Qt::black)), 20);
}

TEST_P(SymbolTest, takesTheColourOfTheText) {
  Symbols symbols;
  const QImage image = drawn(symbols, GetParam(), QColor(200, 30, 60));
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixelColor(x, y).alpha() == 255) {
        EXPECT_EQ(image.pixelColor(x, y), QColor(200, 30, 60));
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(used, SymbolTest,
                         testing::Values("app.badge.checkmark.fill", "arrow.down.right.and.arrow.up.left",
                                         "dock.arrow.up.rectangle", "dock.rectangle", "exclamationmark.circle",
                                         "eye.slash", "gear", "hare.fill", "macwindow", "questionmark",
                                         "rectangle.and.hand.point.up.left.filled", "square.resize.down", "star",
                                         "timer", "tornado", "tortoise.fill", "wand.and.stars.inverse"),
                         [](const auto& tested) {
                           std::string name = tested.param;
                           std::replace(name.begin(), name.end(), '.', '_');
                           return name;
                         });

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
