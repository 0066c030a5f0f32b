#include "core/MinEffect.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarnwell::core {
namespace {

TEST(MinEffectTest, effectsCountInThePickersOrder) {
  EXPECT_EQ(static_cast<int>(MinEffect::genie), 0);
  EXPECT_EQ(static_cast<int>(MinEffect::scale), 1);
  EXPECT_EQ(static_cast<int>(MinEffect::suck), 2);
}

TEST(MinEffectTest, textIsTheCaseName) {
  EXPECT_EQ(text(MinEffect::genie), "genie");
  EXPECT_EQ(text(MinEffect::scale), "scale");
  EXPECT_EQ(text(MinEffect::suck), "suck");
}

TEST(MinEffectTest, caseNamesParseInAnyLetterCase) {
  EXPECT_EQ(parseMinEffect("genie"), MinEffect::genie);
  EXPECT_EQ(parseMinEffect("GENIE"), MinEffect::genie);
  EXPECT_EQ(parseMinEffect("Scale"), MinEffect::scale);
  EXPECT_EQ(parseMinEffect("Suck"), MinEffect::suck);
  EXPECT_EQ(parseMinEffect("SUC\u212A"), MinEffect::suck) << "the Kelvin sign's lower case is a k";
}

TEST(MinEffectTest, otherTextsParseAsNone) {
  const std::vector<std::string> texts = {"", "Genie Effect", "scale\r", " suck", "suck ", "gen\u0130e", "1"};
  for (const std::string& other : texts) {
    EXPECT_EQ(parseMinEffect(other), std::nullopt) << '"' << other << '"';
  }
  EXPECT_EQ(parseMinEffect(std::string_view("genie\0", 6)), std::nullopt);
}

}  // namespace
}  // namespace tarnwell::core
