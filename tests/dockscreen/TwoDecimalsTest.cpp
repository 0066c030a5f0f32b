#include "dockscreen/TwoDecimals.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "host/headless/PointNumberFormat.h"

namespace tarnwell::dockscreen {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

struct Row {
  double value = 0;
  double cut = 0;
};

void expectCut(const kit::NumberFormat& format, const std::vector<Row>& table) {
  for (const Row& row : table) {
    EXPECT_EQ(withTwoDecimals(row.value, format), row.cut) << row.value;
  }
}

TEST(TwoDecimalsTest, aPointLocaleKeepsTwoDecimalsAndLosesThousands) {
  expectCut(
      host_headless::PointNumberFormat('.', ','),
      {{0, 0},        {0.2, 0.2},     {0.456, 0.46},    {0.454, 0.45}, {0.125, 0.12}, {0.135, 0.14},    {0.145, 0.14},
       {0.375, 0.38}, {0.004, 0},     {0.1 + 0.2, 0.3}, {5, 5},        {99.999, 100}, {999.99, 999.99}, {999.999, 0},
       {1000, 0},     {1234567.5, 0}, {-0.456, -0.46},  {-0.001, 0},   {-1000, 0},    {1e300, 0}});
}

TEST(TwoDecimalsTest, aCommaLocaleLosesFractionsAndReadsThousandsAsUnits) {
  expectCut(host_headless::PointNumberFormat(',', '.'), {{0, 0},
                                                         {0.2, 0},
                                                         {0.5, 0},
                                                         {0.999, 1},
                                                         {1.5, 0},
                                                         {5, 5},
                                                         {100, 100},
                                                         {1000, 1},
                                                         {1234, 1.234},
                                                         {1234.5, 0},
                                                         {1234567, 0},
                                                         {-5, -5},
                                                         {-0.5, 0}});
}

TEST(TwoDecimalsTest, whatIsNoNumberStays) {
  const host_headless::PointNumberFormat format;
  EXPECT_EQ(withTwoDecimals(infinity, format), infinity);
  EXPECT_EQ(withTwoDecimals(-infinity, format), -infinity);
  EXPECT_TRUE(std::isnan(withTwoDecimals(nan, format)));
}

TEST(TwoDecimalsTest, aSecondCutChangesNothingInAPointLocale) {
  const host_headless::PointNumberFormat format;
  for (int i = -2000; i < 2000; ++i) {
    const double once = withTwoDecimals(i * 0.0137, format);
    EXPECT_EQ(withTwoDecimals(once, format), once) << i;
  }
}

// A hundred times 0.145 is below fourteen and a half.
TEST(TwoDecimalsTest, hundredthsAreRoundedAsTheProductStands) {
  EXPECT_EQ(roundedToHundredths(0.145), 0.14);
  EXPECT_EQ(roundedToHundredths(1.005), 1);
  EXPECT_EQ(roundedToHundredths(1.115), 1.12);
}

TEST(TwoDecimalsTest, hundredthsAreRoundedHalfAwayFromZero) {
  const std::vector<Row> table = {{0, 0},        {0.456, 0.46},   {0.125, 0.13},       {0.375, 0.38}, {0.005, 0.01},
                                  {0.0049, 0},   {-0.125, -0.13}, {-0.005, -0.01},     {1, 1},        {99.994, 99.99},
                                  {99.995, 100}, {1e15, 1e15},    {infinity, infinity}};
  for (const Row& row : table) {
    EXPECT_EQ(roundedToHundredths(row.value), row.cut) << row.value;
  }
  EXPECT_TRUE(std::isnan(roundedToHundredths(nan)));
}

}  // namespace
}  // namespace tarnwell::dockscreen
