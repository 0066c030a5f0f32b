#include <gtest/gtest.h>

#include <vector>

#include "dockscreen/TwoDecimals.h"
#include "host/headless/PointNumberFormat.h"
#include "host/linux/IcuNumberFormat.h"

namespace tarnwell {
namespace {

using dockscreen::withTwoDecimals;
using host_headless::PointNumberFormat;
using host_linux::IcuNumberFormat;

struct Row {
  const char* locale = "";
  double value = 0;
  double cut = 0;
};

TEST(TwoDecimalsInLocales, eachLocaleCutsAsItsNotationIsRead) {
  const std::vector<Row> table = {
      {"en_US", 0.456, 0.46},
      {"en_US", 0.145, 0.14},
      {"en_US", 99.999, 100},
      {"en_US", 1000, 0},
      {"en_US_POSIX", 0.456, 0.46},
      {"en_US_POSIX", 0.145, 0.14},
      {"en_US_POSIX", 1000, 1000},
      {"en_IN", 0.375, 0.38},
      {"en_IN", 100000, 0},
      {"de_CH", 0.456, 0.46},
      {"de_CH", 1000, 0},
      {"de_DE", 0.5, 0},
      {"de_DE", 0.999, 1},
      {"de_DE", 5, 5},
      {"de_DE", 1234, 1.234},
      {"fr_FR", 0.5, 0},
      {"fr_FR", 5, 5},
      {"fr_FR", 1000, 0},
      {"ar_EG", 5, 0},
      {"sr_Latn_RS", 1000, 1},
      {"sv_SE", -0.5, 0},
  };
  for (const Row& row : table) {
    EXPECT_EQ(withTwoDecimals(row.value, IcuNumberFormat(row.locale)), row.cut) << row.locale << ' ' << row.value;
  }
}

TEST(TwoDecimalsInLocales, theFormatInMemoryCutsAsTheRealOne) {
  const IcuNumberFormat american("en_US");
  const IcuNumberFormat german("de_DE");
  for (int thousandths = -2000; thousandths <= 2000; ++thousandths) {
    const double value = thousandths / 1000.0;
    EXPECT_EQ(withTwoDecimals(value, PointNumberFormat()), withTwoDecimals(value, american)) << value;
    EXPECT_EQ(withTwoDecimals(value, PointNumberFormat(',', '.')), withTwoDecimals(value, german)) << value;
  }
}

}  // namespace
}  // namespace tarnwell
