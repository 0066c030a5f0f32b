#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "commandline/Front.h"
#include "profile/values/Setting.h"

namespace tarnwell::commandline {
namespace {

using nlohmann::json;
using testing::HasSubstr;

/// What `list` prints where the store has these values alone.
std::string listOf(const std::map<std::string_view, std::string>& values) {
  std::string lines;
  for (const profile::Setting& setting : profile::settings) {
    const auto found = values.find(setting.key);
    std::string key(setting.key);
    key.resize(25, ' ');
    lines += key + (found != values.end() ? found->second : "not set") + "\n";
  }
  return lines;
}

/// A setting of `list --json`.
json settingIn(const Front& front, const std::string& key, const Words& environment = {}) {
  const json answer = json::parse(front.run({"list", "--json"}, environment).output);
  for (const json& setting : answer["settings"]) {
    if (setting["key"] == key) {
      return setting;
    }
  }
  return nullptr;
}

TEST(Listing, showsEverySettingWithItsValue) {
  const Front front(Front::Dock::isAbsent);
  EXPECT_EQ(front.run({"list"}).output, listOf({}));
  front.defaults({"write", "com.apple.dock", "autohide-delay", "-float", "0.15"});
  front.defaults({"write", "com.apple.dock", "mineffect", "suck"});
  front.defaults({"write", "com.apple.dock", "showhidden", "-bool", "true"});
  const Outcome outcome = front.run({"list"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.output, listOf({{"autohide-delay", "0.15"}, {"mineffect", "suck"}, {"showhidden", "true"}}));
}

TEST(Listing, namesOtherTypesAndChangesNothing) {
  const Front front;
  front.defaults({"write", "com.apple.dock", "scroll-to-open", "-int", "1"});
  front.defaults({"write", "com.apple.dock", "autohide-delay", "-array", "a"});
  front.defaults({"write", "com.apple.dock", "autohide-time-modifier", "yes"});
  const std::string before = standin::fileContent(front.system().dockStore());
  const std::string text = front.run({"list"}).output;
  EXPECT_THAT(text, HasSubstr("scroll-to-open           true   stored as integer\n"));
  EXPECT_THAT(text, HasSubstr("autohide-delay           wrong-type   stored as array\n"));
  EXPECT_THAT(text, HasSubstr("autohide-time-modifier   wrong-type   stored as string\n"));
  EXPECT_EQ(standin::fileContent(front.system().dockStore()), before);
  EXPECT_EQ(front.starts(), 1);
}

TEST(Listing, aValueThatTheSettingCannotHaveIsNoWrongType) {
  struct Row {
    std::string key;
    Words value;
    std::string fault;
    std::string stored;
  };
  const std::vector<Row> rows = {
      {"autohide-delay", {"-float", "-1"}, "out of range", "float"},
      {"autohide-delay", {"-float", "inf"}, "out of range", "float"},
      {"autohide-delay", {"-int", "100000"}, "out of range", "integer"},
      {"autohide-delay", {"-string", "86401"}, "out of range", "string"},
      {"mineffect", {"-string", "swirl"}, "no effect", "string"},
  };
  const Front front(Front::Dock::isAbsent);
  for (const Row& row : rows) {
    front.run({"reset", "-q", "--all"});
    ASSERT_EQ(front.defaults({"write", "com.apple.dock", row.key, row.value[0], row.value[1]}).status, 0);
    EXPECT_EQ(front.run({"list"}).output, listOf({{row.key, row.fault + "   stored as " + row.stored}}));
    const json setting = settingIn(front, row.key);
    EXPECT_EQ(setting["state"], "wrong-value") << row.value[1];
    EXPECT_EQ(setting["stored"], row.stored);
    EXPECT_FALSE(setting.contains("value"));
    const Outcome get = front.run({"get", row.key});
    EXPECT_EQ(get.status, 1);
    EXPECT_EQ(get.output, "");
    EXPECT_EQ(get.errors, "tarnwell: " + row.key + " is " + row.fault + "\n") << "it is set, and the Dock has it";
  }
}

TEST(Listing, anEffectInOtherLettersIsShownAsItIsStored) {
  const Front front(Front::Dock::isAbsent);
  front.defaults({"write", "com.apple.dock", "mineffect", "-string", "Suck"});
  EXPECT_EQ(front.run({"list"}).output, listOf({{"mineffect", "suck   stored as string Suck"}}));
  front.run({"set", "-q", "mineffect=suck"});
  EXPECT_EQ(front.run({"list"}).output, listOf({{"mineffect", "suck"}}));
}

TEST(Listing, namesWhatAConfigurationProfileForces) {
  const Front front(Front::Dock::isAbsent);
  front.defaults({"write", "com.apple.dock", "autohide-delay", "-float", "0.1"});
  front.shell(R"sh("$D" write "/Library/Managed Preferences/$(id -un)/com.apple.dock" autohide-delay -float 0.5)sh");
  EXPECT_THAT(front.run({"list"}).output,
              HasSubstr("autohide-delay           0.5 (forced by a configuration profile)\n"));
  const json setting = settingIn(front, "autohide-delay");
  EXPECT_EQ(setting["state"], "forced");
  EXPECT_EQ(setting["value"], 0.5);
}

TEST(Listing, whatIsForcedIsNamedSoWhateverItsType) {
  const Front front(Front::Dock::isAbsent);
  front.shell(R"sh(managed="/Library/Managed Preferences/$(id -un)/com.apple.dock"
      "$D" write "$managed" autohide-delay -array a
      "$D" write "$managed" showhidden -int 1)sh");
  EXPECT_EQ(front.run({"list"}).output,
            listOf({{"autohide-delay", "wrong-type   stored as array (forced by a configuration profile)"},
                    {"showhidden", "true   stored as integer (forced by a configuration profile)"}}));
  EXPECT_EQ(settingIn(front, "autohide-delay"),
            json({{"key", "autohide-delay"}, {"type", "float"}, {"state", "forced"}, {"stored", "array"}}));
}

TEST(Listing, getIsOfTheUsersOwnValueAndRunsOneShell) {
  const Front front(Front::Dock::isAbsent);
  front.shell(R"sh("$D" write "/Library/Managed Preferences/$(id -un)/com.apple.dock" autohide-delay -float 0.5)sh");
  front.run({"set", "-q", "mineffect=suck"});
  front.watchShells();
  EXPECT_EQ(front.run({"get", "mineffect"}).output, "suck\n");
  const Outcome outcome = front.run({"get", "autohide-delay"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.errors, "tarnwell: autohide-delay is not set; the Dock decides\n");
  EXPECT_EQ(front.shellLines(), "defaults export com.apple.dock -\ndefaults export com.apple.dock -\n");
}

TEST(Listing, systemsFrom15OnHaveNoSingleAppMode) {
  const Front front(Front::Dock::isAbsent);
  front.defaults({"write", "com.apple.dock", "single-app", "-bool", "true"});
  EXPECT_THAT(front.run({"list"}, {"MACOS_VERSION=15"}).output,
              HasSubstr("single-app               not on this system\n"));
  EXPECT_EQ(settingIn(front, "single-app", {"MACOS_VERSION=15.1"}),
            json({{"key", "single-app"}, {"type", "boolean"}, {"state", "unsupported"}}));
  EXPECT_EQ(front.run({"get", "single-app"}, {"MACOS_VERSION=15"}).errors,
            "tarnwell: single-app has no effect from macOS 15 on.\n");
}

TEST(Listing, jsonHasStatesValuesAndTypes) {
  const Front front(Front::Dock::isAbsent);
  front.defaults({"write", "com.apple.dock", "autohide-delay", "-float", "0.15"});
  front.defaults({"write", "com.apple.dock", "scroll-to-open", "-int", "1"});
  front.defaults({"write", "com.apple.dock", "mineffect", "-array"});
  const Outcome outcome = front.run({"list", "--json"}, {"MACOS_VERSION=14.5"});
  EXPECT_THAT(outcome.output, testing::StartsWith(R"({"format":1,"system":"14.5.0","settings":[{"key":)"
                                                  R"("autohide-delay","type":"float","state":"set","value":0.15,)"
                                                  R"("stored":"float"},)"));
  const json list = json::parse(outcome.output);
  EXPECT_EQ(list["settings"].size(), profile::settings.size());
  EXPECT_EQ(settingIn(front, "showhidden"), json({{"key", "showhidden"}, {"type", "boolean"}, {"state", "unset"}}));
  EXPECT_EQ(
      settingIn(front, "scroll-to-open"),
      json({{"key", "scroll-to-open"}, {"type", "boolean"}, {"state", "set"}, {"value", true}, {"stored", "integer"}}));
  EXPECT_EQ(settingIn(front, "mineffect"),
            json({{"key", "mineffect"}, {"type", "string"}, {"state", "wrong-type"}, {"stored", "array"}}));
}

TEST(Listing, coloursAreForTerminalsUnlessAskedFor) {
  const Front front(Front::Dock::isAbsent);
  EXPECT_EQ(front.run({"list"}).output, listOf({}));
  EXPECT_EQ(front.run({"list", "--color=never"}).output, listOf({}));
  EXPECT_THAT(front.run({"list", "--color", "always"}).output, HasSubstr("\x1B[2mnot set\x1B[0m\n"));
  EXPECT_THAT(front.run({"list", "--json", "--color=always"}).output, testing::Not(HasSubstr("\x1B")));
}

TEST(Listing, terminalsHaveColoursUnlessTheUserObjects) {
  const Front front(Front::Dock::isAbsent);
  const auto onTerminal = [&](const std::string& variables) {
    return front.shell("script -qec \"env " + variables + " '$T' list\" /dev/null </dev/null").output;
  };
  EXPECT_THAT(onTerminal("TERM=xterm"), HasSubstr("\x1B[2mnot set"));
  EXPECT_THAT(onTerminal("TERM=xterm NO_COLOR=1"), testing::Not(HasSubstr("\x1B[2m")));
  EXPECT_THAT(onTerminal("TERM=dumb"), testing::Not(HasSubstr("\x1B[2m")));
}

TEST(Listing, getPrintsAValue) {
  const Front front(Front::Dock::isAbsent);
  front.defaults({"write", "com.apple.dock", "autohide-delay", "-float", "2"});
  front.defaults({"write", "com.apple.dock", "showhidden", "-int", "1"});
  EXPECT_EQ(front.run({"get", "autohide-delay"}).output, "2.0\n");
  EXPECT_EQ(front.run({"get", "showhidden"}).output, "true\n");
}

TEST(Listing, getOfNoValueIsANo) {
  const Front front(Front::Dock::isAbsent);
  const Outcome none = front.run({"get", "showhidden"});
  EXPECT_EQ(none.status, 1);
  EXPECT_EQ(none.output, "");
  EXPECT_EQ(none.errors, "tarnwell: showhidden is not set; the Dock decides\n");
  const Outcome instead = front.run({"get", "showhidden", "--default", "perhaps"});
  EXPECT_EQ(instead.status, 0);
  EXPECT_EQ(instead.output, "perhaps\n");
  EXPECT_EQ(instead.errors, "");
}

TEST(Listing, anUnknownKeyIsRefusedWithASuggestion) {
  const Front front(Front::Dock::isAbsent);
  const Outcome outcome = front.run({"get", "autohide-dely"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.errors,
            "tarnwell: \"autohide-dely\" is not a setting that Tarnwell knows; did you mean autohide-delay?\n");
}

TEST(Listing, aStartUpFileThatPrintsIsPassedOver) {
  const Front front(Front::Dock::isAbsent);
  front.defaults({"write", "com.apple.dock", "mineffect", "suck"});
  front.system().folder().write(".zshenv", "echo '<hello>'; echo complaint >&2\n");
  const Outcome outcome = front.run({"get", "mineffect"});
  EXPECT_EQ(outcome.output, "suck\n");
  EXPECT_EQ(outcome.errors, "");
}

}  // namespace
}  // namespace tarnwell::commandline
