#include "profile/values/Wish.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace tarnwell::profile {
namespace {

using core::Absent;
using core::MinEffect;
using core::OtherValue;
using core::StoredValue;

constexpr const Setting& delay = settings[0];
constexpr const Setting& scroll = settings[2];
constexpr const Setting& effect = settings[3];

TEST(WishTest, secondsAreRoundedToWhatCanBeKept) {
  const std::vector<std::pair<double, std::string>> table = {{0, "0.0"},
                                                             {-0.0, "0.0"},
                                                             {0.15, "0.15"},
                                                             {0.123456789, "0.123457"},
                                                             {1e-7, "0.0"},
                                                             {0.000001, "0.000001"},
                                                             {1000, "1000.0"},
                                                             {86400, "86400.0"},
                                                             {3.14159265, "3.141593"},
                                                             {1.0 / 3, "0.333333"}};
  for (const auto& [seconds, expected] : table) {
    const auto wish = secondsWish(delay, seconds);
    ASSERT_TRUE(wish) << seconds;
    EXPECT_EQ(text(*wish), expected);
  }
}

TEST(WishTest, secondsHaveARange) {
  const std::vector<std::pair<double, std::string>> table = {{-1, "-1"},
                                                             {-1e-9, "-0.000000001"},
                                                             {86400.5, "86400.5"},
                                                             {std::numeric_limits<double>::infinity(), "inf"},
                                                             {std::numeric_limits<double>::quiet_NaN(), "nan"}};
  for (const auto& [seconds, shown] : table) {
    const auto wish = secondsWish(delay, seconds);
    ASSERT_FALSE(wish) << seconds;
    EXPECT_EQ(wish.error().message, "autohide-delay is between 0 and 86400 seconds, not " + shown);
  }
}

TEST(WishTest, anEffectIsExactlyOneOfThreeWords) {
  EXPECT_EQ(*effectWish(effect, "suck"), Wish(MinEffect::suck));
  for (const char* word : {"swirl", "Suck", "", "suck "}) {
    const auto wish = effectWish(effect, word);
    ASSERT_FALSE(wish) << word;
    EXPECT_EQ(wish.error().message, std::string("mineffect is genie, scale or suck, not \"") + word + "\"");
  }
}

TEST(WishTest, eachHasItsText) {
  EXPECT_EQ(text(Unset()), "not set");
  EXPECT_EQ(text(Wish(0.15F)), "0.15");
  EXPECT_EQ(text(Wish(true)), "true");
  EXPECT_EQ(text(Wish(MinEffect::scale)), "scale");
}

TEST(WishTest, isFulfilledByTheSameValueOfTheSameTypeAlone) {
  const std::vector<Wish> wishes = {Unset(), Wish(1.0F), Wish(true), Wish(false), Wish(MinEffect::suck)};
  const std::vector<StoredValue> fulfilling = {Absent(), 1.0, true, false, "suck"};
  for (std::size_t i = 0; i < wishes.size(); ++i) {
    for (std::size_t j = 0; j < fulfilling.size(); ++j) {
      EXPECT_EQ(isFulfilled(wishes[i], fulfilling[j]), i == j) << i << " by " << j;
    }
    EXPECT_FALSE(isFulfilled(wishes[i], OtherValue{"integer", "1"}));
    EXPECT_FALSE(isFulfilled(wishes[i], "Suck"));
  }
}

TEST(WishTest, aStoredNumberOf32BitsFulfilsTheDecimalThatItWasWrittenAs) {
  const Wish wish = *secondsWish(delay, 0.15);
  EXPECT_TRUE(isFulfilled(wish, StoredValue(static_cast<double>(0.15F))));
  EXPECT_TRUE(isFulfilled(wish, StoredValue(0.15)));
  EXPECT_TRUE(isFulfilled(wish, StoredValue(0.1500001)));
  EXPECT_FALSE(isFulfilled(wish, StoredValue(0.150001)));
}

TEST(WishTest, aStoredValueOfAnotherTypeMeansWhatItsTextSays) {
  EXPECT_EQ(meaningOf(scroll, OtherValue{"integer", "1"}), Wish(true));
  EXPECT_EQ(meaningOf(scroll, StoredValue(0.0)), Wish(false));
  EXPECT_EQ(meaningOf(scroll, "1"), Wish(true));
  EXPECT_EQ(meaningOf(delay, OtherValue{"integer", "2"}), Wish(2.0F));
  EXPECT_EQ(meaningOf(delay, "0.5"), Wish(0.5F));
  EXPECT_EQ(meaningOf(delay, true), Wish(1.0F));
  EXPECT_EQ(meaningOf(effect, "Suck"), Wish(MinEffect::suck));
}

TEST(WishTest, aStoredValueThatSaysNothingMeansNothing) {
  EXPECT_EQ(meaningOf(delay, Absent()), std::nullopt);
  EXPECT_EQ(meaningOf(delay, "yes"), std::nullopt);
  EXPECT_EQ(meaningOf(delay, StoredValue(-1.0)), std::nullopt);
  EXPECT_EQ(meaningOf(delay, OtherValue{"array", ""}), std::nullopt);
  EXPECT_EQ(meaningOf(scroll, "true"), std::nullopt);
  EXPECT_EQ(meaningOf(scroll, StoredValue(0.5)), std::nullopt);
  EXPECT_EQ(meaningOf(effect, "swirl"), std::nullopt);
  EXPECT_EQ(meaningOf(effect, Absent()), std::nullopt);
}

}  // namespace
}  // namespace tarnwell::profile
