#include "standin/dock/model/ShelfLayout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <vector>

namespace tarnwell::standin {
namespace {

constexpr auto icon = SlotKind::icon;
constexpr auto separator = SlotKind::separator;
constexpr ShelfLayout::Attention none;

TEST(ShelfLayoutTest, standsInTheMiddle) {
  const ShelfLayout layout({icon, icon, separator, icon}, 1000);
  const auto slots = layout.placed(none);
  const auto ends = layout.ends(none);
  ASSERT_EQ(slots.size(), 4U);
  EXPECT_NEAR((ends.left + ends.right) / 2, 500, 0.5);
  EXPECT_EQ(slots[0].size, 52);
  EXPECT_EQ(slots[1].center - slots[0].center, 60);
  EXPECT_EQ(slots[3].center - slots[1].center, 60 + 17);
}

TEST(ShelfLayoutTest, theIconBelowThePointerGrowsMost) {
  const ShelfLayout layout(std::vector(9, icon), 1000);
  const double pointer = layout.placed(none)[4].center;
  const auto slots = layout.placed({.pointer = pointer, .strength = 1});
  EXPECT_NEAR(slots[4].size, 52 * 1.36, 1e-9);
  EXPECT_NEAR(slots[4].center, pointer, 1e-9);
  EXPECT_GT(slots[4].size, slots[3].size);
  EXPECT_GT(slots[3].size, slots[2].size);
  EXPECT_NEAR(slots[3].size, slots[5].size, 1e-9);
  EXPECT_EQ(slots[0].size, 52);
}

TEST(ShelfLayoutTest, whatIsBelowThePointerStaysBelowIt) {
  const ShelfLayout layout({icon, icon, icon, separator, icon, icon}, 1000);
  const auto rest = layout.ends(none);
  for (double x = rest.left; x <= rest.right; x += 3) {
    const auto slot = layout.slotAt(x);
    if (!slot) {
      continue;
    }
    const auto placed = layout.placed({.pointer = x, .strength = 1})[*slot];
    // An icon's slot is as much wider than the icon as at rest.
    EXPECT_LE(std::abs(placed.center - x), placed.size * 60 / 52 / 2 + 1e-6) << x;
  }
}

TEST(ShelfLayoutTest, nothingMovesOnTheFarSide) {
  const ShelfLayout layout(std::vector(9, icon), 1000);
  const double left = layout.placed(none)[0].center - 26;
  EXPECT_NEAR(layout.ends({.pointer = left - 4, .strength = 1}).left, layout.ends(none).left, 1e-9);
  EXPECT_GT(layout.ends({.pointer = left - 4, .strength = 1}).right, layout.ends(none).right);
}

TEST(ShelfLayoutTest, growsByDegrees) {
  const ShelfLayout layout(std::vector(3, icon), 1000);
  const double pointer = layout.placed(none)[1].center;
  EXPECT_NEAR(layout.placed({.pointer = pointer, .strength = 0.5})[1].size, 52 * 1.18, 1e-9);
}

TEST(ShelfLayoutTest, iconsShrinkWhereThereIsNoRoom) {
  const ShelfLayout layout(std::vector(20, icon), 640);
  EXPECT_LT(layout.iconSize(), 30);
  EXPECT_GE(layout.ends(none).left, 0);
  EXPECT_LE(layout.ends(none).right, 640);
}

TEST(ShelfLayoutTest, iconsAreAsLargeAsThereIsRoomFor) {
  // Six points beside the shelf, seven within its ends, a separator of 17 and eight between icons.
  const double full = 2 * 6 + 2 * 7 + 17 + 10 * (40 + 8);
  std::vector<SlotKind> slots(10, icon);
  slots.push_back(separator);
  EXPECT_EQ(ShelfLayout(slots, full).iconSize(), 40);
  EXPECT_EQ(ShelfLayout(slots, full - 1).iconSize(), 39);
  EXPECT_EQ(ShelfLayout(slots, full).ends(none).left, 6);
  EXPECT_EQ(ShelfLayout(slots, full).ends(none).right, full - 6);
  EXPECT_EQ(ShelfLayout(slots, 100).iconSize(), 16) << "smaller ones are none";
  EXPECT_EQ(ShelfLayout({separator}, 10).iconSize(), 52) << "none lacks room";
}

TEST(ShelfLayoutTest, aSeparatorAndThePlaceBesideTheShelfAreNoSlot) {
  const ShelfLayout layout({icon, separator, icon}, 1000);
  const auto slots = layout.placed(none);
  EXPECT_EQ(layout.slotAt(slots[0].center), 0U);
  EXPECT_EQ(layout.slotAt(slots[1].center), std::nullopt);
  EXPECT_EQ(layout.slotAt(slots[2].center), 2U);
  EXPECT_EQ(layout.slotAt(5), std::nullopt);
  EXPECT_EQ(layout.slotAt(995), std::nullopt);
}

}  // namespace
}  // namespace tarnwell::standin
