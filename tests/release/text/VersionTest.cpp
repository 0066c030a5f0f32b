#include "release/text/Version.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <string>
#include <vector>

namespace tarnwell::release {
namespace {

enum class Sign { less, same, more };

struct Row {
  std::string left = {};
  Sign expected = Sign::same;
  std::string right = {};
};

Sign compared(const std::string& left, const std::string& right) {
  const std::weak_ordering order = compareVersions(left, right);
  if (order == std::weak_ordering::equivalent) {
    return Sign::same;
  }
  return order == std::weak_ordering::less ? Sign::less : Sign::more;
}

Sign opposite(Sign sign) {
  if (sign == Sign::same) {
    return Sign::same;
  }
  return sign == Sign::less ? Sign::more : Sign::less;
}

std::vector<Row> rows() {
  const std::string beyond64Bits = "18446744073709551616";
  return {
      {"1.0", Sign::same, "1.0"},
      {"1.0", Sign::less, "1.1"},
      {"1.9", Sign::less, "1.10"},
      {"1.2.3", Sign::less, "1.3"},
      {"2", Sign::more, "1.99.99"},
      // What is missing counts as zero.
      {"1", Sign::same, "1.0.0"},
      {"1", Sign::less, "1.0.1"},
      {"", Sign::same, "0"},
      {"", Sign::less, "0.0.1"},
      {"1..2", Sign::same, "1.0.2"},
      {".5", Sign::same, "0.5"},
      {"1.", Sign::same, "1"},
      {"...", Sign::same, ""},
      // Numbers are numbers, however they are written and however large.
      {"01.002", Sign::same, "1.2"},
      {"1." + beyond64Bits, Sign::more, "1.18446744073709551615"},
      {"1." + beyond64Bits, Sign::less, "1.18446744073709551617"},
      {"1.4294967296", Sign::more, "1.0"},
      {std::string(3000, '9'), Sign::more, std::string(2999, '9')},
      {std::string(3000, '0') + "7", Sign::same, "7"},
      // Words come before numbers.
      {"1.0b2", Sign::less, "1.0"},
      {"1.0b2", Sign::less, "1.0b10"},
      {"1.0b2", Sign::more, "1.0a9"},
      {"1.0b", Sign::less, "1.0b1"},
      {"1.0b2", Sign::more, "0.9"},
      {"1.0rc1", Sign::more, "1.0b2"},
      {"1.0-beta", Sign::less, "1.0"},
      {"1.0-beta", Sign::same, "1.0beta"},
      {"1.0.BETA", Sign::same, "1.0.beta"},
      // A letter of several bytes, \xc3\x80, ends no word.
      {"1.0À", Sign::less, "1.0Àa"},
      {"v2.0", Sign::less, "0"},
      {"latest", Sign::less, "0"},
      {"be", Sign::less, "beta"},
      {"inf", Sign::less, "1"},
      {"1e9", Sign::less, "2"},
      {"0x10", Sign::less, "1"},
      // Everything else only parts pieces.
      {"1-2", Sign::same, "1.2"},
      {"-1", Sign::same, "1"},
      {"--", Sign::same, ""},
      {" 1.0\n", Sign::same, "1.0"},
      {"1.0+5", Sign::more, "1.0"},
      {"1,5", Sign::same, "1.5"},
      {std::string("1.0\0.9", 6), Sign::same, "1.0.9"},
      // Digits of other scripts are no digits.
      {"\xef\xbc\x99", Sign::less, "0"},
      {"1.\xff\xfe", Sign::less, "1.0"},
  };
}

std::string randomVersion(std::mt19937& random) {
  static const std::string characters = "0129.-abB+ \xc3";
  std::string text(random() % 7, ' ');
  for (char& c : text) {
    c = characters[random() % characters.size()];
  }
  return text;
}

TEST(Version, isComparedComponentByComponent) {
  for (const Row& row : rows()) {
    EXPECT_EQ(compared(row.left, row.right), row.expected) << '"' << row.left << "\" and \"" << row.right << '"';
  }
}

TEST(Version, isADigitAndWhatPeopleWriteBehindIt) {
  for (const std::string& text : {std::string("0"), std::string("1.0"), std::string("1.0b2"), std::string("2026.11.21"),
                                  std::string("1.0-rc1+build.5"), std::string("1.0~x_1"), std::string(100, '9')}) {
    EXPECT_TRUE(isVersion(text)) << text;
  }
  for (const std::string& text :
       {std::string(), std::string("v9"), std::string("-1"), std::string(".5"), std::string("latest"),
        std::string("1.0 beta"), std::string("1,5"), std::string("1.0\n"), std::string("1.0\0", 4), std::string("1/2"),
        std::string("1:2"), std::string("1.\xc3\xa4"), std::string("\xef\xbc\x99"), std::string("2<b>"),
        std::string(101, '9')}) {
    EXPECT_FALSE(isVersion(text)) << text;
  }
}

TEST(Version, isNumericWhenItIsNumbersAlone) {
  for (const std::string text : {"0", "6", "6.1", "6.1.0", "10.15.7", "0006.01"}) {
    EXPECT_TRUE(isNumericVersion(text)) << text;
  }
  for (const std::string text : {"", "v9", "6.", ".6", "6..1", ".", "6.1-rc1", "6.x", "6,1", " 6", "6e9", "-6", "*"}) {
    EXPECT_FALSE(isNumericVersion(text)) << text;
  }
}

TEST(Version, comparesTheOtherWayRoundWithTheOppositeResult) {
  for (const Row& row : rows()) {
    EXPECT_EQ(compared(row.right, row.left), opposite(row.expected)) << row.right << " and " << row.left;
  }
}

TEST(Version, isInOneOrderWhateverTheTexts) {
  std::mt19937 random(7);
  for (int round = 0; round < 200'000; ++round) {
    const std::string a = randomVersion(random);
    const std::string b = randomVersion(random);
    const std::string c = randomVersion(random);
    ASSERT_EQ(compared(a, a), Sign::same) << a;
    ASSERT_EQ(compared(a, b), opposite(compared(b, a))) << a << " and " << b;
    if (compared(a, b) != Sign::more && compared(b, c) != Sign::more) {
      ASSERT_NE(compared(a, c), Sign::more) << a << ", " << b << ", " << c;
    }
    if (compared(a, b) == Sign::same) {
      ASSERT_EQ(compared(a, c), compared(b, c)) << a << ", " << b << ", " << c;
    }
  }
}

TEST(Version, ofAMegabyteIsComparedAtOnce) {
  std::string longest;
  while (longest.size() < 1'000'000) {
    longest += "1.";
  }
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(compared(longest + "1", longest + "2"), Sign::less);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

}  // namespace
}  // namespace tarnwell::release
