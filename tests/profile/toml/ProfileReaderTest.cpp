#include "profile/toml/ProfileReader.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace tarnwell::profile {
namespace {

using core::MinEffect;

std::string errorOf(const std::string& text) {
  const auto profile = readProfile(text, "quick.toml");
  return profile ? "none" : profile.error().message;
}

/// What is said of a profile whose first line is as it should be.
std::string errorBehindFormat(const std::string& text) { return errorOf("profile = 1\n" + text); }

TEST(ProfileReaderTest, aProfileIsReadWithItsComments) {
  const auto profile = readProfile(R"(# A Dock that is there at once.
profile = 1                    # version of this format
name = "quick"
unset = ["showhidden"]         # the Dock decides

[dock]
autohide-delay = 0.0           # seconds
autohide-time-modifier = 0.15
scroll-to-open = true
mineffect = "suck"
)",
                                   "quick.toml");
  ASSERT_TRUE(profile) << profile.error().message;
  const Profile expected = {.name = "quick",
                            .wishes = {Wish(0.0F), Wish(0.15F), Wish(true), Wish(MinEffect::suck), Unset(), {}, {}}};
  EXPECT_EQ(*profile, expected);
}

TEST(ProfileReaderTest, everyFormOfTomlIsTaken) {
  const Profile expected = {.wishes = {Wish(1000.0F), {}, {}, Wish(MinEffect::scale), Unset(), Unset(), {}}};
  for (const char* text : {"profile = 1\nunset = [ 'showhidden',\n  \"static-only\", ]\ndock.autohide-delay = 1_000\n"
                           "dock.mineffect = 'scale'\n",
                           "dock = { \"autohide-delay\" = 1e3, mineffect = \"\\u0073cale\" }\r\nprofile = 0x1\r\n"
                           "unset = [\"static-only\", \"showhidden\"]\r\n"}) {
    const auto profile = readProfile(text, "quick.toml");
    ASSERT_TRUE(profile) << profile.error().message;
    EXPECT_EQ(*profile, expected) << text;
  }
}

TEST(ProfileReaderTest, aWholeNumberOfSecondsIsTaken) {
  const auto profile = readProfile("profile = 1\n[dock]\nautohide-delay = 0\nautohide-time-modifier = 86400\n", "a");
  ASSERT_TRUE(profile);
  EXPECT_EQ(profile->wishes[0], Wish(0.0F));
  EXPECT_EQ(profile->wishes[1], Wish(86400.0F));
}

TEST(ProfileReaderTest, moreDigitsThanCanBeKeptAreRounded) {
  const auto profile = readProfile("profile = 1\n[dock]\nautohide-delay = 0.123456789\n", "a");
  ASSERT_TRUE(profile);
  EXPECT_EQ(text(*profile->wishes[0]), "0.123457");
}

TEST(ProfileReaderTest, aKeyThatIsInNeitherPlaceIsLeftAlone) {
  const auto profile = readProfile("profile = 1", "a");
  ASSERT_TRUE(profile) << profile.error().message;
  EXPECT_EQ(*profile, Profile());
}

TEST(ProfileReaderTest, theFormatIsAsked) {
  const std::string missing =
      "quick.toml:1:1: \"profile = 1\" is missing, which says that this is a profile, and of which format";
  EXPECT_EQ(errorOf(""), missing);
  EXPECT_EQ(errorOf("[dock]\nautohide-delay = 0\n"), missing);
  EXPECT_EQ(errorOf("profile = \"1\"\n"), "quick.toml:1:11: profile is the number of the format, not a string");
  EXPECT_EQ(errorOf("profile = 1.0\n"), "quick.toml:1:11: profile is the number of the format, not a decimal number");
}

TEST(ProfileReaderTest, ofANewerFormatNothingElseIsSaid) {
  EXPECT_EQ(errorOf("new = 1\nprofile = 2\n"), "quick.toml:2:11: the profile is of format 2; this program reads 1");
}

TEST(ProfileReaderTest, whatIsNotKnownIsAnError) {
  const std::vector<std::pair<std::string, std::string>> table = {
      {"names = 1\n", "2:1: \"names\" is not known; a profile has profile, name, unset and [dock]"},
      {"[Dock]\n", "2:2: \"Dock\" is not known; a profile has profile, name, unset and [dock]"},
      {"[dock]\n  autohide-dely = 0\n",
       "3:3: \"autohide-dely\" is not a setting that is known; did you mean autohide-delay?"},
      {"[dock]\norientation = 'left'\n", "3:1: \"orientation\" is not a setting that is known"},
      {"[dock.showhidden]\na = 1\n", "2:1: showhidden is true or false, not a table"},
      {"unset = ['mineffekt']\n", "2:10: \"mineffekt\" is not a setting that is known; did you mean mineffect?"}};
  for (const auto& [text, error] : table) {
    EXPECT_EQ(errorBehindFormat(text), "quick.toml:" + error);
  }
}

TEST(ProfileReaderTest, aWrongTypeIsAnError) {
  const std::vector<std::pair<std::string, std::string>> table = {
      {"autohide-delay = '0.5'", "autohide-delay is a number of seconds, not a string"},
      {"autohide-delay = true", "autohide-delay is a number of seconds, not true"},
      {"scroll-to-open = 1", "scroll-to-open is true or false, not a number"},
      {"single-app = 'true'", "single-app is true or false, not a string"},
      {"mineffect = false", R"(mineffect is "genie", "scale" or "suck", not false)"},
      {"mineffect = ['suck']", R"(mineffect is "genie", "scale" or "suck", not a list)"},
      {"static-only = 2024-01-01", "static-only is true or false, not a date or a time"}};
  for (const auto& [line, error] : table) {
    const std::string column = std::to_string(line.find('=') + 3);
    EXPECT_EQ(errorBehindFormat("[dock]\n" + line + '\n'), "quick.toml:3:" + column + ": " + error);
  }
  EXPECT_EQ(errorBehindFormat("name = 1\n"), "quick.toml:2:8: name is a string, not a number");
  EXPECT_EQ(errorBehindFormat("unset = 'mineffect'\n"), "quick.toml:2:9: unset is a list of keys, not a string");
  EXPECT_EQ(errorBehindFormat("unset = ['mineffect', 1]\n"),
            "quick.toml:2:23: unset is a list of keys, which are strings, not a number");
  EXPECT_EQ(errorBehindFormat("dock = []\n"), "quick.toml:2:8: dock is a table of keys and values, not a list");
  EXPECT_EQ(errorBehindFormat("[[dock]]\n"), "quick.toml:2:1: dock is a table of keys and values, not a list");
}

TEST(ProfileReaderTest, aValueOutOfRangeIsAnError) {
  const std::vector<std::pair<std::string, std::string>> table = {
      {"autohide-delay = -1", "autohide-delay is between 0 and 86400 seconds, not -1"},
      {"autohide-delay = 86400.1", "autohide-delay is between 0 and 86400 seconds, not 86400.1"},
      {"autohide-delay = nan", "autohide-delay is between 0 and 86400 seconds, not nan"},
      {"autohide-delay = inf", "autohide-delay is between 0 and 86400 seconds, not inf"},
      {"mineffect = 'Suck'", "mineffect is genie, scale or suck, not \"Suck\""}};
  for (const auto& [line, error] : table) {
    const std::string column = std::to_string(line.find('=') + 3);
    EXPECT_EQ(errorBehindFormat("[dock]\n" + line + '\n'), "quick.toml:3:" + column + ": " + error);
  }
}

TEST(ProfileReaderTest, aKeyStandsInOnePlace) {
  EXPECT_EQ(errorBehindFormat("unset = ['showhidden']\n[dock]\nshowhidden = true\n"),
            "quick.toml:2:10: showhidden is in unset and has a value");
  EXPECT_EQ(errorBehindFormat("dock.showhidden = true\nunset = ['mineffect', 'showhidden']\n"),
            "quick.toml:3:23: showhidden is in unset and has a value");
  EXPECT_EQ(errorBehindFormat("unset = ['showhidden', 'showhidden']\n"),
            "quick.toml:2:24: showhidden is in unset twice");
}

TEST(ProfileReaderTest, aNameIsOneVisibleLine) {
  const std::string error = "quick.toml:2:8: name is one line of up to 60 visible characters";
  EXPECT_EQ(errorBehindFormat("name = \"a\\nb\"\n"), error);
  EXPECT_EQ(errorBehindFormat("name = '" + std::string(61, 'a') + "'\n"), error);
}

TEST(ProfileReaderTest, theFirstErrorInTheTextIsTheOneThatIsSaid) {
  EXPECT_EQ(errorBehindFormat("unknown = 1\nname = 1\n[dock]\nb = 1\na = 1\n").substr(0, 14), "quick.toml:2:1");
  EXPECT_EQ(errorBehindFormat("[dock]\nb = 1\na = 1\n").substr(0, 14), "quick.toml:3:1");
}

TEST(ProfileReaderTest, whatIsNoTomlIsAnErrorAtItsPlace) {
  EXPECT_EQ(errorBehindFormat("profile = 1\n"), "quick.toml:2:11: cannot redefine existing integer 'profile'");
  for (const char* text : {"dock", "[[[", "é = 1", "a = é", "[dock", "a = ", "a = 1 2", "a = \"\xff\"", "\x01",
                           "[dock]\n[dock]\n", "a = [[[[[[1]]]]]]"}) {
    EXPECT_TRUE(errorBehindFormat(text).starts_with("quick.toml:2:") ||
                errorBehindFormat(text).starts_with("quick.toml:3:"))
        << text << ": " << errorBehindFormat(text);
  }
}

TEST(ProfileReaderTest, anExportForAnotherToolIsCalledThat) {
  const std::string error = "quick.toml:1:1: a profile is TOML; what is written for other tools is not read";
  EXPECT_EQ(errorOf("{\"profile\":1}\n"), error);
  EXPECT_EQ(errorOf('{' + std::string(1000, ' ') + '}'), error);
  EXPECT_EQ(errorOf("<?xml version=\"1.0\"?>\n<plist/>\n"), error);
}

TEST(ProfileReaderTest, anErrorIsOneVisibleLine) {
  for (const char* text : {"\"\\u001b[31m\" = 1\n", "[dock]\n\"a\\nb\" = 1\n", "\"\\n\" = 1\n\"\\n\" = 2\n",
                           "a\x1b = 1\n", R"(unset = ["\u202e"])", "[dock]\nmineffect = \"\\u001b\""}) {
    const std::string error = errorBehindFormat(text);
    EXPECT_NE(error, "none");
    EXPECT_EQ(error.find_first_of("\n\x1b"), std::string::npos) << error;
    EXPECT_EQ(error.find("\u202e"), std::string::npos) << error;
  }
}

TEST(ProfileReaderTest, aFileHasALimit) {
  const std::string line = std::string(499, '#') + '\n';
  std::string text = "profile = 1\n";
  while (text.size() + line.size() <= largestProfile) {
    text += line;
  }
  text += std::string(largestProfile - text.size(), '#');
  EXPECT_EQ(errorOf(text), "none");
  EXPECT_EQ(errorOf(text + '#'), "quick.toml:1:1: a profile has 65536 bytes at most");
}

TEST(ProfileReaderTest, aLineHasALimit) {
  EXPECT_EQ(errorBehindFormat(std::string(500, '#') + '\n'), "none");
  EXPECT_EQ(errorBehindFormat(std::string(501, '#') + '\n'),
            "quick.toml:2:501: a line of a profile has 500 bytes at most");
}

TEST(ProfileReaderTest, keysThatGoDeepTakeNoMoreThanTheStack) {
  std::string deep = "a";
  while (deep.size() < 480) {
    deep += ".a";
  }
  const std::string nested = deep + " = [\n{ " + deep + " = [\n{ " + deep + " = 1 }\n]}\n]\n";
  EXPECT_NE(errorBehindFormat("[" + deep + "]\n" + nested), "none");
}

}  // namespace
}  // namespace tarnwell::profile
