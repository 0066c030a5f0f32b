#include "core/DecimalText.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "core/ValueText.h"
#include "fixtures/CommaLocale.h"

namespace tarnwell::core {
namespace {

TEST(DecimalTextTest, valuesReadAsTheTableSays) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  const std::vector<std::pair<double, std::string>> table = {
      {0.0, "0.0"},
      {-0.0, "-0.0"},
      {1.0, "1.0"},
      {-1.0, "-1.0"},
      {0.2, "0.2"},
      {0.5, "0.5"},
      {0.46, "0.46"},
      {10.0, "10.0"},
      {0.1 + 0.2, "0.30000000000000004"},
      {1.0 / 3.0, "0.3333333333333333"},
      {123456.789, "123456.789"},
      {0.0001, "0.0001"},
      {0.00012345, "0.00012345"},
      {0.00001, "1e-05"},
      {0.000012345, "1.2345e-05"},
      {9.999999999999999e-05, "9.999999999999999e-05"},
      {1e15, "1000000000000000.0"},
      {1234567890123456.0, "1234567890123456.0"},
      {9999999999999998.0, "9999999999999998.0"},
      {9007199254740994.0, "9007199254740994.0"},
      {1e16, "1e+16"},
      {-1e16, "-1e+16"},
      {1e100, "1e+100"},
      {5e-324, "5e-324"},
      {std::numeric_limits<double>::max(), "1.7976931348623157e+308"},
      {infinity, "inf"},
      {-infinity, "-inf"},
      {nan, "nan"},
      {-nan, "nan"},
  };
  for (const auto& [value, text] : table) {
    EXPECT_EQ(decimalText(value), text);
  }
}

TEST(DecimalTextTest, everyTextReadsBackToTheSameDouble) {
  std::mt19937_64 random(20240615);
  for (int count = 0; count < 20000; ++count) {
    const auto value = std::bit_cast<double>(random());
    if (!std::isfinite(value)) {
      continue;
    }
    ASSERT_EQ(std::bit_cast<std::uint64_t>(parseFloat(decimalText(value))), std::bit_cast<std::uint64_t>(value))
        << decimalText(value);
  }
}

TEST(DecimalTextTest, aDigitLessReadsAsAnotherDouble) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> seconds(1.0, 10.0);
  for (int count = 0; count < 5000; ++count) {
    const double value = seconds(random);
    const std::string text = decimalText(value);
    const int digitsBehindThePoint = static_cast<int>(text.size()) - 2;
    std::array<char, 32> shorter{};
    std::snprintf(shorter.data(), shorter.size(), "%.*f", digitsBehindThePoint - 1, value);
    ASSERT_NE(parseFloat(shorter.data()), value) << text;
  }
}

TEST(DecimalTextTest, plainTextHasNoExponent) {
  const std::vector<std::pair<double, std::string>> table = {
      {0.456, "0.456"},
      {1.0, "1.0"},
      {-0.000012345, "-0.000012345"},
      {1e16, "10000000000000000.0"},
      {-5e-324, "-0." + std::string(323, '0') + "5"},
      {std::numeric_limits<double>::infinity(), "inf"},
  };
  for (const auto& [value, text] : table) {
    EXPECT_EQ(plainDecimalText(value), text);
  }
  const auto longest = std::bit_cast<double>(0x800fffffffffffffULL);
  EXPECT_EQ(parseFloat(plainDecimalText(longest)), longest);
}

TEST(DecimalTextTest, roundedTextIsTheShortestOfANumberOf32Bits) {
  const std::vector<std::pair<double, std::string>> table = {
      {0.0, "0.0"},
      {-0.0, "0.0"},
      {-1e-7, "0.0"},
      {1.0, "1.0"},
      {0.15, "0.15"},
      {static_cast<double>(0.15F), "0.15"},
      {0.123456789, "0.123457"},
      {0.000001, "0.000001"},
      {0.0000004, "0.0"},
      {86399.123457, "86399.12"},
      {12345.678, "12345.68"},
      {16385.123, "16385.12"},
      {1234.56789, "1234.568"},
  };
  for (const auto& [value, text] : table) {
    EXPECT_EQ(roundedDecimalText(roundedDecimal(value)), text);
  }
}

TEST(DecimalTextTest, printedTextHasSevenDigitsAndAnExponentWhereItIsSmall) {
  const std::vector<std::pair<float, std::string>> table = {
      {0.0F, "0"},
      {1.0F, "1"},
      {0.2F, "0.2"},
      {0.0001F, "0.0001"},
      {0.00005F, "5e-05"},
      {0.000001F, "1e-06"},
      {12345.678F, "12345.68"},
      {86400.0F, "86400"},
  };
  for (const auto& [value, text] : table) {
    EXPECT_EQ(printedDecimalText(value), text);
  }
}

TEST(DecimalTextTest, whatAToolReadsOfARoundedNumberIsThatNumber) {
  std::mt19937_64 random(7);
  for (const double most : {0.001, 1.0, 8.0, 100.0, 10000.0, 86400.0}) {
    std::uniform_real_distribution<double> seconds(0.0, most);
    for (int count = 0; count < 20000; ++count) {
      const float value = roundedDecimal(seconds(random));
      ASSERT_EQ(roundedDecimal(parseFloat(printedDecimalText(value))), value);
    }
  }
}

TEST(DecimalTextTest, roundedTextReadsBackToTheSameNumberAndHasSixDecimalsAtMost) {
  std::mt19937_64 random(32);
  for (const double most : {0.001, 1.0, 8.0, 16.0, 100.0, 86400.0}) {
    std::uniform_real_distribution<double> seconds(0.0, most);
    for (int count = 0; count < 20000; ++count) {
      const float value = roundedDecimal(seconds(random));
      const std::string text = roundedDecimalText(value);
      ASSERT_EQ(roundedDecimal(parseFloat(text)), value) << text;
      ASSERT_EQ(static_cast<float>(parseFloat(text)), value) << text;
      ASSERT_LE(text.size() - text.find('.'), 7) << text;
    }
  }
}

TEST(DecimalTextTest, aCommaLocaleChangesNothing) {
  const fixtures::CommaLocale locale;
  EXPECT_EQ(decimalText(1234.5), "1234.5");
  EXPECT_EQ(decimalText(0.2), "0.2");
}

}  // namespace
}  // namespace tarnwell::core
