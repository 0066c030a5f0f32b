#include "standin/dock/model/SpreadLayout.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

namespace tarnwell::standin {
namespace {

constexpr Rectangle area{0, 0, 1200, 700};

bool overlap(const Rectangle& a, const Rectangle& b) {
  return a.x < b.right() && b.x < a.right() && a.y < b.bottom() && b.y < a.bottom();
}

TEST(SpreadLayoutTest, noWindowCoversAnotherOrLeavesTheArea) {
  for (std::size_t count = 1; count <= 9; ++count) {
    const auto places = spreadOut(std::vector(count, Rectangle{500, 300, 420, 300}), area);
    ASSERT_EQ(places.size(), count);
    for (std::size_t i = 0; i < count; ++i) {
      EXPECT_GE(places[i].x, 0);
      EXPECT_LE(places[i].right(), area.right());
      EXPECT_LE(places[i].bottom(), area.bottom());
      for (std::size_t j = 0; j < i; ++j) {
        EXPECT_FALSE(overlap(places[i], places[j])) << i << ' ' << j << " of " << count;
      }
    }
  }
}

TEST(SpreadLayoutTest, keepsTheShapeAndEnlargesNothing) {
  const auto places = spreadOut(std::vector(6, Rectangle{0, 0, 420, 300}), area);
  EXPECT_NEAR(places[0].width / places[0].height, 1.4, 1e-9);
  EXPECT_LT(places[0].width, 420);
  EXPECT_EQ(spreadOut({Rectangle{0, 0, 100, 80}}, area)[0], (Rectangle{550, 310, 100, 80}));
}

TEST(SpreadLayoutTest, theLastRowIsSharedByThoseThatAreLeft) {
  const auto places = spreadOut(std::vector(3, Rectangle{0, 0, 100, 80}), area);
  EXPECT_EQ(places[0], (Rectangle{250, 135, 100, 80}));
  EXPECT_EQ(places[1], (Rectangle{850, 135, 100, 80}));
  EXPECT_EQ(places[2], (Rectangle{550, 485, 100, 80}));
}

TEST(SpreadLayoutTest, thirtySixPointsStayFreeBetweenWindowsThatFillTheirPlaces) {
  EXPECT_EQ(spreadOut({Rectangle{0, 0, 2400, 700}}, area)[0], (Rectangle{18, 180, 1164, 339.5}));
  const auto places = spreadOut(std::vector(2, Rectangle{0, 0, 1200, 100}), area);
  EXPECT_EQ(places[1].x - places[0].right(), 36);
}

TEST(SpreadLayoutTest, aWindowWithoutRoomIsAPointWide) {
  const auto places = spreadOut({Rectangle{0, 0, 100, 80}}, {0, 0, 30, 30});
  EXPECT_EQ(places[0].width, 1);
}

TEST(SpreadLayoutTest, nothingSpreadsToNothing) { EXPECT_TRUE(spreadOut({}, area).empty()); }

}  // namespace
}  // namespace tarnwell::standin
