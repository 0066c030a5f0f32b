#include "profile/exports/Targets.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fixtures/ExpectDump.h"
#include "profile/values/Wishes.h"

namespace tarnwell::profile {
namespace {

using core::MinEffect;
using Warnings = std::vector<std::string>;

const Profile quick = named("quick", wishing({{"autohide-delay", 0.0F},
                                              {"autohide-time-modifier", 0.15F},
                                              {"scroll-to-open", true},
                                              {"mineffect", MinEffect::suck},
                                              {"showhidden", Unset()},
                                              {"static-only", false},
                                              {"single-app", true}}));

system::Result<Export> exported(std::string_view target, const Profile& profile,
                                const ExportOptions& options = {.identifier = "org.example.dock"}) {
  for (const Target& each : targets) {
    if (each.name == target) {
      return each.write(profile, options);
    }
  }
  return system::Failure{"there is no such target"};
}

TEST(TargetsTest, eachWritesAProfileInItsWords) {
  for (const Target& target : targets) {
    const auto result = target.write(quick, {.identifier = "org.example.dock"});
    ASSERT_TRUE(result) << target.name;
    fixtures::expectDump("profile/exports/quick." + std::string(target.name), result->text);
  }
}

TEST(TargetsTest, eachSaysWhatItCannotSay) {
  const auto unset = [](const std::string& target) {
    return "showhidden is left alone: " + target + " cannot say that it shall not be set";
  };
  const std::map<std::string_view, Warnings> expected = {
      {"nix-darwin", {unset("nix-darwin")}},
      {"home-manager", {unset("home-manager")}},
      {"plist", {unset("a property list")}},
      {"mobileconfig",
       {unset("a configuration profile"),
        "static-only is left out: in a configuration profile it means that the Dock shows the profile's own items"}}};
  for (const Target& target : targets) {
    const auto result = target.write(quick, {.identifier = "org.example.dock"});
    ASSERT_TRUE(result) << target.name;
    const auto warnings = expected.find(target.name);
    EXPECT_EQ(result->warnings, warnings == expected.end() ? Warnings() : warnings->second) << target.name;
    for (const std::string& warning : result->warnings) {
      EXPECT_NE(result->text.find(warning), std::string::npos) << target.name << ": " << warning;
    }
  }
}

TEST(TargetsTest, nothingIsWarnedOfWhereEverythingCanBeSaid) {
  const Profile simple = {.wishes = {Wish(0.5F), {}, {}, Wish(MinEffect::genie)}};
  for (const Target& target : targets) {
    const auto result = target.write(simple, {.identifier = "org.example.dock"});
    ASSERT_TRUE(result) << target.name;
    EXPECT_EQ(result->warnings, Warnings()) << target.name;
  }
}

TEST(TargetsTest, aModuleThatRestartsNothingSaysSo) {
  Profile alone;
  alone.wishes.back() = Wish(true);
  const auto result = exported("nix-darwin", alone);
  ASSERT_TRUE(result);
  EXPECT_EQ(result->warnings, Warnings{"The Dock is not restarted: nix-darwin does that for its own options alone"});
}

TEST(TargetsTest, theDockIsRestartedAtEverySwitchWhereThatIsAskedFor) {
  const std::string entry = "\n  home.activation.restartDock = ";
  EXPECT_EQ(exported("home-manager", quick)->text.find(entry), std::string::npos);
  EXPECT_NE(exported("home-manager", quick, {.restartsDock = true})->text.find(entry), std::string::npos);
}

TEST(TargetsTest, aConfigurationProfileNeedsAnIdentifier) {
  for (const char* identifier : {"", "dock", "org.example/<dock>"}) {
    const auto result = exported("mobileconfig", quick, {.identifier = identifier});
    ASSERT_FALSE(result) << identifier;
    EXPECT_EQ(result.error().message,
              "a configuration profile needs an identifier, such as --identifier org.example.dock: it decides which "
              "one replaces which");
  }
}

TEST(TargetsTest, neitherNameNorValuesDecideWhichConfigurationProfileIsReplaced) {
  const auto identity = [](const Profile& profile, const std::string& identifier) {
    const std::string text = exported("mobileconfig", profile, {.identifier = identifier})->text;
    std::string uuids;
    for (std::size_t at = text.find("PayloadUUID"); at != std::string::npos; at = text.find("PayloadUUID", at + 1)) {
      uuids += text.substr(at, 64);
    }
    return uuids;
  };
  EXPECT_EQ(identity(quick, "a.b"), identity({.wishes = {Wish(1.0F)}}, "a.b"));
  EXPECT_NE(identity(quick, "a.b"), identity(quick, "a.c"));
}

TEST(TargetsTest, aNameIsEscapedWhereItIsNoComment) {
  const Profile named = {.name = R"(<a> & "b\")", .wishes = {}};
  EXPECT_NE(exported("mobileconfig", named)->text.find(R"(<string>&lt;a&gt; &amp; "b\"</string>)"), std::string::npos);
  EXPECT_NE(exported("json", named)->text.find(R"("name": "<a> & \"b\\\"")"), std::string::npos);
}

}  // namespace
}  // namespace tarnwell::profile
