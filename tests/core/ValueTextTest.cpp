#include "core/ValueText.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "fixtures/CommaLocale.h"

namespace tarnwell::core {
namespace {

const std::string nul(1, '\0');

TEST(ValueTextTest, lineFeedsGoWhereverTheyStand) {
  EXPECT_EQ(withoutLineFeeds("0.2\n"), "0.2");
  EXPECT_EQ(withoutLineFeeds("\n0\n.\n2\n\n"), "0.2");
  EXPECT_EQ(withoutLineFeeds("\n"), "");
  EXPECT_EQ(withoutLineFeeds(" a\tb\r\n"), " a\tb\r");
}

TEST(ValueTextTest, wholeLiteralsAreNumbers) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const std::vector<std::pair<std::string, double>> table = {
      {"0.2", 0.2},      {"1", 1.0},          {"+1", 1.0},         {"-0.5", -0.5},  {".5", 0.5},
      {"5.", 5.0},       {"1e3", 1e3},        {"1E-05", 1e-5},     {"0x10", 16.0},  {"0x1p-1", 0.5},
      {"inf", infinity}, {"-INF", -infinity}, {"1e999", infinity}, {"1e-999", 0.0}, {"infinity", infinity},
      {"007.5", 7.5},
  };
  for (const auto& [text, value] : table) {
    EXPECT_EQ(parseFloat(text), value) << text;
  }
  EXPECT_TRUE(std::isnan(parseFloat("nan")));
  EXPECT_TRUE(std::isnan(parseFloat("NAN(12)")));
}

TEST(ValueTextTest, everyOtherTextIsZero) {
  const std::vector<std::string> texts = {"",          " 0.2",       "\t0.2", "\r0.2", "\v0.2",     "\f0.2",
                                          nul + "0.2", "0.2 ",       "0.2\r", "0.2s",  "0.2" + nul, "0.2" + nul + "5",
                                          "0,2",       "1 2",        "1e",    "0x",    "+-1",       "1_000",
                                          "\n0.2",     "zsh: error", "in",    "1.2.3", "\u00A00.2"};
  for (const std::string& text : texts) {
    EXPECT_EQ(parseFloat(text), 0.0) << '"' << text << '"';
  }
}

TEST(ValueTextTest, aCommaLocaleChangesNothing) {
  const fixtures::CommaLocale locale;
  EXPECT_EQ(parseFloat("0.5"), 0.5);
  EXPECT_EQ(parseFloat("0,5"), 0.0);
  EXPECT_EQ(*std::localeconv()->decimal_point, ',') << "the process keeps its locale";
  EXPECT_NE(std::strtod("0.5", nullptr), 0.5) << "and the thread gets it back";
}

TEST(ValueTextTest, oneAloneIsTrue) {
  EXPECT_TRUE(parseBool("1"));
  for (const std::string text : {"0", "true", "YES", "", "1 ", " 1", "1\r", "1.0", "11", "The key does not exist"}) {
    EXPECT_FALSE(parseBool(text)) << text;
  }
}

TEST(ValueTextTest, booleansAreWrittenAsWords) {
  EXPECT_EQ(boolText(true), "true");
  EXPECT_EQ(boolText(false), "false");
}

}  // namespace
}  // namespace tarnwell::core
