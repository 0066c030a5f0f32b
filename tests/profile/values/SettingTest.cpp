#include "profile/values/Setting.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace tarnwell::profile {
namespace {

TEST(SettingTest, theDocksKeysStandInTheOrderOfTheCatalogueWithTheirTypes) {
  const std::vector<std::pair<std::string, Type>> expected = {
      {"autohide-delay", Type::seconds}, {"autohide-time-modifier", Type::seconds},
      {"scroll-to-open", Type::boolean}, {"mineffect", Type::effect},
      {"showhidden", Type::boolean},     {"static-only", Type::boolean},
      {"single-app", Type::boolean}};
  std::vector<std::pair<std::string, Type>> actual;
  for (const Setting& setting : settings) {
    actual.emplace_back(setting.key, setting.type);
    EXPECT_EQ(setting.gate == core::Gate::olderThan15, setting.key == "single-app");
  }
  EXPECT_EQ(actual, expected);
}

TEST(SettingTest, aSettingIsFoundByItsKeyAlone) {
  EXPECT_EQ(settingNamed("autohide-delay"), 0);
  EXPECT_EQ(settingNamed("single-app"), 6);
  for (const char* other : {"", "delaySpeed", "Mineffect", "single-app ", "autohide"}) {
    EXPECT_EQ(settingNamed(other), std::nullopt) << other;
  }
}

}  // namespace
}  // namespace tarnwell::profile
