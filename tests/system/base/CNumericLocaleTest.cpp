#include "system/base/CNumericLocale.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

#include "fixtures/CommaLocale.h"

namespace tarnwell::system {
namespace {

std::string half() {
  std::array<char, 8> text{};
  (void)std::snprintf(text.data(), text.size(), "%.1f", 0.5);
  return text.data();
}

TEST(CNumericLocaleTest, numbersHaveAPointAsLongAsItLives) {
  const fixtures::CommaLocale comma;
  EXPECT_EQ(half(), "0,5");
  {
    const CNumericLocale plain;
    EXPECT_EQ(half(), "0.5");
  }
  EXPECT_EQ(half(), "0,5");
}

}  // namespace
}  // namespace tarnwell::system
