#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>

#include "fixtures/CommaLocale.h"
#include "standin/MacSystem.h"

namespace tarnwell::standin {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;

constexpr const char* prefix =
    R"(20[0-9]{2}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\.[0-9]{3} defaults\[[0-9]+:[0-9]+\] )";

struct Stored {
  const char* flag = "";
  const char* written = "";
  const char* read = "";
  const char* type = "";
};

constexpr std::array<Stored, 25> storedValues = {{
    {"-float", "0.2", "0.2", "float"},
    {"-float", "1.0", "1", "float"},
    {"-float", "0.0", "0", "float"},
    {"-float", "0.456", "0.456", "float"},
    {"-float", "1e-05", "1e-05", "float"},
    {"-float", "3.14159265", "3.141593", "float"},
    {"-float", "nan", "nan", "float"},
    {"-float", "1e300", "inf", "float"},
    {"-float", "-2.5", "-2.5", "float"},
    {"-bool", "true", "1", "boolean"},
    {"-bool", "No", "0", "boolean"},
    {"-boolean", "YES", "1", "boolean"},
    {"-boolean", "FALSE", "0", "boolean"},
    {"-int", "-5", "-5", "integer"},
    {"-integer", "9223372036854775807", "9223372036854775807", "integer"},
    {"-int", "-9223372036854775808", "-9223372036854775808", "integer"},
    {"-int", "+7", "7", "integer"},
    {"-string", "suck", "suck", "string"},
    {"-string", "-float", "-float", "string"},
    {"-string", "", "", "string"},
    {"-string", "h\xC3\xA9 \"x\"", "h\xC3\xA9 \"x\"", "string"},
    {"-data", "00FF1a", "<00ff1a>", "data"},
    {"-date", "2025-03-20 19:05:18 +0100", "2025-03-20 18:05:18 +0000", "date"},
    {"-date", "2099-03-20T19:05:18Z", "2099-03-20 19:05:18 +0000", "date"},
    {"-date", "1999-12-31", "1999-12-31 00:00:00 +0000", "date"},
}};

TEST(DefaultsReadTest, readPrintsTheValueAndItsType) {
  const MacSystem system;
  for (const Stored& each : storedValues) {
    SCOPED_TRACE(std::string(each.flag) + " " + each.written);
    EXPECT_EQ(system.defaults({"write", "com.apple.dock", "key", each.flag, each.written}).status, 0);
    const Outcome read = system.defaults({"read", "com.apple.dock", "key"});
    EXPECT_EQ(read.status, 0);
    EXPECT_EQ(read.output, std::string(each.read) + "\n");
    EXPECT_THAT(read.errors, IsEmpty());
    EXPECT_EQ(system.defaults({"read-type", "com.apple.dock", "key"}).output,
              std::string("Type is ") + each.type + "\n");
  }
}

TEST(DefaultsReadTest, aPlainWordIsStoredAsText) {
  const MacSystem system;
  for (const char* word : {"genie", "5", "-5", "true"}) {
    EXPECT_EQ(system.defaults({"write", "com.apple.dock", "key", word}).status, 0);
    EXPECT_EQ(system.value("key"), word);
    EXPECT_EQ(system.defaults({"read-type", "com.apple.dock", "key"}).output, "Type is string\n");
  }
}

TEST(DefaultsReadTest, realsOf64BitsArePrintedWith15Digits) {
  const MacSystem system;
  const PropertyList list(plist_new_dict());
  plist_dict_set_item(list.get(), "tenth", plist_new_real(0.1));
  plist_dict_set_item(list.get(), "third", plist_new_real(1.0 / 3.0));
  plist_dict_set_item(list.get(), "huge", plist_new_real(1.5e300));
  system.store(binaryOf(list));
  EXPECT_EQ(system.value("tenth"), "0.1");
  EXPECT_EQ(system.value("third"), "0.333333333333333");
  EXPECT_EQ(system.value("huge"), "1.5e+300");
}

TEST(DefaultsReadTest, aMissingKeyIsReportedOnStandardErrorAlone) {
  const MacSystem system;
  for (const char* verb : {"read", "read-type"}) {
    const Outcome outcome = system.defaults({verb, "com.apple.dock", "nosuch"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output, IsEmpty());
    EXPECT_THAT(outcome.errors,
                MatchesRegex(std::string(prefix) + "\nThe domain/default pair of \\(com\\.apple\\.dock, "
                                                   "nosuch\\) does not exist\n"));
  }
  EXPECT_FALSE(std::filesystem::exists(system.root()));
}

TEST(DefaultsReadTest, aMissingDomainIsReported) {
  const MacSystem system;
  const Outcome outcome = system.defaults({"read", "com.example.x"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, MatchesRegex(std::string(prefix) + "\nDomain com\\.example\\.x does not exist\n"));
}

TEST(DefaultsReadTest, aDomainIsPrintedAsAnOldStyleListSortedByKey) {
  const MacSystem system;
  system.shell(R"("$D" write com.apple.dock static-only -bool true; "$D" write com.apple.dock mineffect suck;)"
               R"("$D" write com.apple.dock b -array 1 'x y'; "$D" write com.apple.dock a -dict k -float 0.2)");
  EXPECT_EQ(system.defaults({"read", "com.apple.dock"}).output, R"({
    a =     {
        k = 0.2;
    };
    b =     (
        1,
        "x y"
    );
    mineffect = suck;
    "static-only" = 1;
}
)");
}

TEST(DefaultsReadTest, readAloneShowsEveryDomain) {
  const MacSystem system;
  system.shell(R"("$D" write org.b k 1; "$D" write org.a k 2)");
  EXPECT_EQ(system.defaults({"read"}).output, R"({
    org.a =     {
        k = 2;
    };
    org.b =     {
        k = 1;
    };
}
)");
}

TEST(DefaultsReadTest, xmlStoresAreReadToo) {
  const MacSystem system;
  system.store(R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict>
    <key>autohide-delay</key><real>0.20000000298023224</real><key>showhidden</key><true/></dict></plist>)");
  EXPECT_EQ(system.value("autohide-delay"), "0.2");
  EXPECT_EQ(system.value("showhidden"), "1");
  EXPECT_EQ(system.defaults({"write", "com.apple.dock", "mineffect", "suck"}).status, 0);
  EXPECT_EQ(system.value("autohide-delay"), "0.2");
}

TEST(DefaultsReadTest, verbsAreTakenInAnyCase) {
  const MacSystem system;
  EXPECT_EQ(system.defaults({"WRITE", "com.apple.dock", "k", "v"}).status, 0);
  EXPECT_EQ(system.defaults({"Read", "com.apple.dock", "k"}).output, "v\n");
}

TEST(DefaultsReadTest, theGlobalDomainHasThreeNames) {
  const MacSystem system;
  EXPECT_EQ(system.defaults({"write", "-g", "k", "v"}).status, 0);
  for (const char* name : {"-g", "-globalDomain", "NSGlobalDomain"}) {
    EXPECT_EQ(system.defaults({"read", name, "k"}).output, "v\n");
  }
  EXPECT_THAT(system.defaults({"read", "-g", "x"}).errors, HasSubstr("(kCFPreferencesAnyApplication, x)"));
  EXPECT_TRUE(std::filesystem::exists(system.preferences() + "/.GlobalPreferences.plist"));
}

TEST(DefaultsReadTest, aPathIsADomainWithAndWithoutItsExtension) {
  const MacSystem system;
  const std::string path = (system.folder() / "mine").string();
  EXPECT_EQ(system.defaults({"write", path, "k", "v"}).status, 0);
  EXPECT_TRUE(std::filesystem::exists(path + ".plist"));
  EXPECT_EQ(system.defaults({"read", path, "k"}).output, "v\n");
  EXPECT_EQ(system.defaults({"read", path + ".plist", "k"}).output, "v\n");
  EXPECT_EQ(run({DEFAULTS_PATH, "read", path, "k"}, {}).output, "v\n");
}

TEST(DefaultsReadTest, managedPreferencesAreThePlayedSystems) {
  const MacSystem system;
  const std::string path = "/Library/Managed Preferences/someone/com.apple.dock";
  EXPECT_EQ(system.defaults({"write", path, "k", "v"}).status, 0);
  EXPECT_TRUE(std::filesystem::exists(system.root() + path + ".plist"));
  EXPECT_EQ(system.defaults({"read", path, "k"}).output, "v\n");
}

TEST(DefaultsReadTest, theLocaleHasNoSay) {
  const MacSystem system;
  const fixtures::CommaLocale locale;
  Words environment = system.environment();
  environment.emplace_back("LC_ALL=comma");
  environment.emplace_back(std::string("LOCPATH=") + std::getenv("LOCPATH"));
  EXPECT_EQ(run({DEFAULTS_PATH, "write", "com.apple.dock", "k", "-float", "0.25"}, environment).status, 0);
  EXPECT_EQ(run({DEFAULTS_PATH, "read", "com.apple.dock", "k"}, environment).output, "0.25\n");
}

TEST(DefaultsReadTest, theRootFollowsTheEnvironment) {
  const MacSystem system;
  const std::string home = system.folder().path().string();
  EXPECT_EQ(run({DEFAULTS_PATH, "write", "d", "k", "v"}, {"HOME=" + home}).status, 0);
  EXPECT_TRUE(system.folder().holds(".local/share/macos-standin/Library/Preferences/d.plist"));
  EXPECT_EQ(run({DEFAULTS_PATH, "write", "d", "k", "v"}, {"HOME=/nosuch", "XDG_DATA_HOME=" + home}).status, 0);
  EXPECT_TRUE(system.folder().holds("macos-standin/Library/Preferences/d.plist"));
}

TEST(DefaultsReadTest, withoutARootThereIsAClearError) {
  for (const char* verb : {"read", "domains"}) {
    const Outcome outcome = run({DEFAULTS_PATH, verb}, {});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors, HasSubstr("None of MACOS_ROOT, XDG_DATA_HOME and HOME"));
  }
  EXPECT_EQ(run({DEFAULTS_PATH, "write", "d", "k", "v"}, {}).status, 1);
}

TEST(DefaultsReadTest, aFullOutputIsAFailure) {
  const MacSystem system;
  system.defaults({"write", "d", "k", "v"});
  EXPECT_EQ(system.shell(R"("$D" read d k >/dev/full)").status, 1);
  EXPECT_EQ(system.shell(R"("$D" read d k >&-)").status, 1);
}

}  // namespace
}  // namespace tarnwell::standin
