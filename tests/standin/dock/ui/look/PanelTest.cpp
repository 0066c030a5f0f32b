#include "standin/dock/ui/look/Panel.h"

#include <gtest/gtest.h>

#include <QtGui/QPainterPath>

namespace tarnwell::standin {
namespace {

constexpr double radius = 12;

QRegion regionOf(const QRect& place) { return panelRegion(QRectF(place), radius); }

TEST(PanelRegion, coversEveryPixelThatTheRoundedSheetTouches) {
  const QRect place(10, 20, 80, 50);
  const QRegion region = regionOf(place);
  QPainterPath sheet;
  sheet.addRoundedRect(QRectF(place), radius, radius);
  for (int y = place.top(); y <= place.bottom(); ++y) {
    for (int x = place.left(); x <= place.right(); ++x) {
      if (sheet.contains(QPointF(x + 0.5, y + 0.5))) {
        EXPECT_TRUE(region.contains(QPoint(x, y))) << x << ", " << y;
      }
    }
  }
}

TEST(PanelRegion, leavesTheCornersOut) {
  const QRect place(0, 0, 80, 50);
  const QRegion region = regionOf(place);
  for (const QPoint& corner : {place.topLeft(), place.topRight(), place.bottomLeft(), place.bottomRight()}) {
    EXPECT_FALSE(region.contains(corner)) << corner.x() << ", " << corner.y();
  }
}

TEST(PanelRegion, isNoLargerThanItsPlace) { EXPECT_EQ(regionOf({-5, 7, 60, 40}).boundingRect(), QRect(-5, 7, 60, 40)); }

}  // namespace
}  // namespace tarnwell::standin
