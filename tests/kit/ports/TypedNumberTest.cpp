#include "kit/ports/TypedNumber.h"

#include <gtest/gtest.h>

#include <string>

namespace tarnwell::kit {
namespace {

TEST(TypedNumber, takesGroupsAsTheLocaleWritesThem) {
  const NumberSymbols indian = {.furtherGroups = 2};
  EXPECT_EQ(typedNumber(U"12,34,567.5", indian), 1234567.5);
  EXPECT_EQ(typedNumber(U"1,234,567.5", indian), std::nullopt);
  EXPECT_EQ(typedNumber(U"1,234", {.firstGroup = 0}), std::nullopt);
}

TEST(TypedNumber, takesTheDigitsOfEachSet) {
  const NumberSymbols arabic = {.decimal = U'\u066B', .zeros = {U'0', U'\u0660'}};
  EXPECT_EQ(typedNumber(U"\u0660\u066B\u0665", arabic), 0.5);
  EXPECT_EQ(typedNumber(U"\u061C-0\u066B5", arabic), -0.5);
}

TEST(TypedNumber, refusesWhatNoDoubleHolds) {
  const std::u32string zeros(400, U'0');
  EXPECT_EQ(typedNumber(std::u32string(400, U'9'), {}), std::nullopt);
  EXPECT_EQ(typedNumber(U"0." + zeros + U"1", {}), std::nullopt);
  EXPECT_EQ(typedNumber(U"0." + zeros, {}), 0.0);
}

}  // namespace
}  // namespace tarnwell::kit
