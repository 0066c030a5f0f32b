#include "host/qt/look/ApplicationStyle.h"

#include <gtest/gtest.h>

#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>

namespace tarnwell::host_qt {
namespace {

TEST(ApplicationStyleTest, arrowsOfANarrowMenuBarAreInTheColourOfItsText) {
  const ApplicationStyle style;
  const QIcon arrows = style.standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton, nullptr, nullptr);
  const QImage image = arrows.pixmap(16, 16).toImage();
  const QColor text = QApplication::palette().color(QPalette::ButtonText);
  int inked = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      inked += image.pixelColor(x, y).alpha() == 255 && image.pixelColor(x, y).rgb() == text.rgb() ? 1 : 0;
    }
  }
  EXPECT_GT(inked, 4);
}

}  // namespace
}  // namespace tarnwell::host_qt
