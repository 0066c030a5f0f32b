#include "host/macos/system/LocaleNumberFormat.h"

#include <gtest/gtest.h>

#include "host/macos/Toolkit.h"

namespace tarnwell::host_macos {
namespace {

class LocaleNumberFormatTest : public testing::Test {
 protected:
  LocaleNumberFormatTest() { startToolkit(); }

  LocaleNumberFormat format;
};

TEST_F(LocaleNumberFormatTest, aNumberHasNoMoreDigitsThanAskedFor) {
  EXPECT_EQ(format.text(0.5, 2), "0.5");
  EXPECT_EQ(format.text(0.456, 2), "0.46");
  EXPECT_EQ(format.text(3, 0), "3");
}

TEST_F(LocaleNumberFormatTest, halvesGoToTheEvenNeighbour) {
  EXPECT_EQ(format.text(0.125, 2), "0.12");
  EXPECT_EQ(format.text(0.375, 2), "0.38");
}

TEST_F(LocaleNumberFormatTest, allOfATypedTextIsANumberOrNothingIs) {
  EXPECT_EQ(format.value("0.25"), 0.25);
  EXPECT_EQ(format.value("-3"), -3);
  for (const char* text : {"", "fast", "1x", "0,5"}) {
    EXPECT_EQ(format.value(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace tarnwell::host_macos
