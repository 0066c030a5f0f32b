#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "commandline/Front.h"
#include "profile/values/Setting.h"

namespace tarnwell::commandline {
namespace {

using testing::HasSubstr;

TEST(Explanation, saysWhatASettingIs) {
  const Front front(Front::Dock::isAbsent);
  EXPECT_EQ(front.run({"explain", "autohide-delay"}).output,
            "autohide-delay\n"
            "  How long the pointer has to be at the edge of the screen before a hidden Dock comes.\n"
            "  type: seconds, 0 to 86400\n"
            "  works while the Dock hides itself (System Settings), and not in full screen\n"
            "  the Dock's own value when not set: about 0.2\n"
            "  systems: macOS 14 and later\n"
            "  window: Delay\n"
            "  command line: defaults write com.apple.dock autohide-delay -float 0.5 && killall Dock\n");
  EXPECT_THAT(front.run({"explain", "static-only"}).output,
              HasSubstr("before the first time the command line keeps all settings in a file, the window does not\n"));
  EXPECT_THAT(front.run({"explain", "single-app"}).output, HasSubstr("  systems: macOS 14\n"));
}

TEST(Explanation, withoutAKeyIsOfAll) {
  const Front front(Front::Dock::isAbsent);
  const std::string text = "\n" + front.run({"explain"}).output;
  for (const auto& setting : profile::settings) {
    EXPECT_THAT(text, HasSubstr("\n" + std::string(setting.key) + "\n  "));
  }
}

TEST(Explanation, itsCommandLinesWork) {
  for (const auto& setting : profile::settings) {
    const Front front;
    const std::string key(setting.key);
    front.shell(R"sh(defaults() { "$D" "$@"; }; killall() { :; }; eval "$("$T" explain )sh" + key +
                R"sh( | sed -n 's/^  command line: //p')")sh");
    EXPECT_EQ(front.run({"get", key}).status, 0) << key;
  }
}

TEST(Explanation, jsonHasTypesAndLimits) {
  const Front front(Front::Dock::isAbsent);
  const auto all = nlohmann::json::parse(front.run({"explain", "--json"}).output);
  EXPECT_EQ(all["format"], 1);
  EXPECT_EQ(all["settings"].size(), profile::settings.size());
  const auto& delay = all["settings"][0];
  EXPECT_EQ(delay["key"], "autohide-delay");
  EXPECT_EQ(delay["type"], "float");
  EXPECT_EQ(delay["least"], 0);
  EXPECT_EQ(delay["most"], 86400);
  EXPECT_EQ(all["settings"][3]["values"], nlohmann::json::array({"genie", "scale", "suck"}));
}

TEST(Explanation, anUnknownKeyIsRefused) {
  const Front front(Front::Dock::isAbsent);
  EXPECT_EQ(front.run({"explain", "minefect"}).status, 2);
}

}  // namespace
}  // namespace tarnwell::commandline
