#include "release/text/Number.h"

#include <gtest/gtest.h>

namespace tarnwell::release {
namespace {

TEST(Number, isDigitsAndNothingElse) {
  EXPECT_EQ(numberIn("0"), 0U);
  EXPECT_EQ(numberIn("0012"), 12U);
  EXPECT_EQ(numberIn("18446744073709551615"), UINT64_MAX);
  for (const char* text : {"", " 1", "1 ", "-1", "+1", "1x", "0x1", "18446744073709551616", "one"}) {
    EXPECT_EQ(numberIn(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace tarnwell::release
