#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <map>

#include "standin/MacSystem.h"

namespace tarnwell::standin {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

struct Refusal {
  Words arguments;
  int status = 1;
  const char* error = "";
};

TEST(DefaultsWriteTest, badInputIsRefusedAndChangesNothing) {
  const std::vector<Refusal> refusals = {
      {{}, 255, "Usage:"},
      {{"frobnicate"}, 255, "Usage:"},
      {{"write"}, 255, "Usage:"},
      {{"write", "com.apple.dock"}, 255, "Usage:"},
      {{"write", "com.apple.dock", "key"}, 255, "Usage:"},
      {{"write", "com.apple.dock", "key", "-bool"}, 255, "Usage:"},
      {{"write", "com.apple.dock", "key", "-bool", "maybe"}, 255, "Usage:"},
      {{"write", "com.apple.dock", "key", "-bool", "1"}, 255, "Usage:"},
      {{"write", "com.apple.dock", "key", "-nosuch", "1"}, 255, "Usage:"},
      {{"write", "com.apple.dock", "key", "-float"}, 255, "Usage:"},
      {{"write", "com.apple.dock", "key", "-float", "1", "2"}, 1, "Unexpected argument 2; leaving defaults unchanged."},
      {{"write", "com.apple.dock", "key", "a", "b"}, 1, "Unexpected argument b; leaving defaults unchanged."},
      {{"write", "com.apple.dock", "key", "-float", "0,5"}, 1, "0,5 is not a number"},
      {{"write", "com.apple.dock", "key", "-float", ""}, 1, "is not a number"},
      {{"write", "com.apple.dock", "key", "-int", "1.5"}, 1, "1.5 is not an integer"},
      {{"write", "com.apple.dock", "key", "-int", "9223372036854775808"}, 1, "is not an integer"},
      {{"write", "com.apple.dock", "key", "-data", "abc"}, 1, "pairs of hexadecimal digits"},
      {{"write", "com.apple.dock", "key", "-data", "zz"}, 1, "pairs of hexadecimal digits"},
      {{"write", "com.apple.dock", "key", "-date", "2025-02-30"}, 1, "is not a date"},
      {{"write", "com.apple.dock", "key", "-string", "a\xFF"}, 1, "is not text in UTF-8"},
      {{"write", "com.apple.dock", "k\xC0\xAF", "v"}, 1, "is not text in UTF-8"},
      {{"write", "com.apple.dock", "key", "a\xFF"}, 1, "is not text in UTF-8"},
      {{"write", "com.apple.dock", "key", "-array", "a\xFF"}, 1, "is not text in UTF-8"},
      {{"write", "com.apple.dock", "key", "-dict", "a\xFF", "b"}, 1, "is not text in UTF-8"},
      {{"write", "com.apple.dock", "key", "(a"}, 255, "Could not parse: (a; Try single-quoting it."},
      {{"write", "com.apple.dock", "key", "{ a = b }"}, 255, "Could not parse: { a = b }; Try single-quoting it."},
      {{"write", "com.apple.dock", "key", "<0fb>"}, 255, "Could not parse: <0fb>; Try single-quoting it."},
      {{"write", "com.apple.dock", "key", "<dict><key>a</key></dict>"}, 255, "Could not parse: <dict>"},
      {{"write", "com.apple.dock", "key", "-array", "(", "b"}, 255, "Could not parse: (; Try single-quoting it."},
      {{"write", "com.apple.dock", "key", "-dict", "a"}, 1, "Key a lacks a value"},
      {{"write", "com.apple.dock", "mineffect", "-array-add", "a"}, 1, "Value for key mineffect is not an array"},
      {{"write", "com.apple.dock", "mineffect", "-dict-add", "a", "b"}, 1, "is not a dictionary"},
      {{"write", "", "key", "v"}, 1, "is not the name of a domain"},
      {{"write", "../../x", "key", "v"}, 1, "is not the name of a domain"},
      {{"write", "a/b", "key", "v"}, 1, "is not the name of a domain"},
      {{"write", "-currentHost", "key", "v"}, 1, "is not the name of a domain"},
      {{"write", std::string(250, 'x'), "key", "v"}, 1, "Could not write domain xxx"},
      {{"read", "com.apple.dock", "a", "b"}, 1, "Unexpected argument b"},
      {{"read-type", "com.apple.dock"}, 255, "Usage:"},
      {{"delete"}, 255, "Usage:"},
      {{"delete", "com.apple.dock", "a", "b"}, 1, "Unexpected argument b"},
      {{"domains", "x"}, 255, "Usage:"},
  };
  const MacSystem system;
  system.defaults({"write", "com.apple.dock", "mineffect", "genie"});
  const std::string before = fileContent(system.dockStore());
  for (const Refusal& each : refusals) {
    SCOPED_TRACE(testing::PrintToString(each.arguments));
    const Outcome outcome = system.defaults(each.arguments);
    EXPECT_EQ(outcome.status, each.status);
    EXPECT_THAT(outcome.errors, HasSubstr(each.error));
    EXPECT_THAT(outcome.output, IsEmpty());
  }
  EXPECT_EQ(fileContent(system.dockStore()), before);
  EXPECT_EQ(system.preferenceNames(), Words{"com.apple.dock.plist"});
}

TEST(DefaultsWriteTest, helpIsPrintedOnStandardOutput) {
  for (const char* help : {"help", "-help", "--help", "-h"}) {
    const Outcome outcome = run({DEFAULTS_PATH, help}, {});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("read-type DOMAIN KEY"));
  }
  EXPECT_EQ(MacSystem().shell(R"("$D" help >/dev/full)").status, 1);
}

TEST(DefaultsWriteTest, theStoreIsBinaryAndForTheUserAlone) {
  const MacSystem system;
  EXPECT_EQ(system.shell(R"(umask 0; "$D" write com.apple.dock k v)").status, 0);
  struct stat status {};
  ASSERT_EQ(::stat(system.dockStore().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
  ASSERT_EQ(::stat(system.preferences().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0700U);
  EXPECT_TRUE(fileContent(system.dockStore()).starts_with("bplist00"));
}

TEST(DefaultsWriteTest, floatsAreStoredWith32Bits) {
  const MacSystem system;
  system.defaults({"write", "com.apple.dock", "k", "-float", "0.2"});
  EXPECT_THAT(system.defaults({"export", "com.apple.dock", "-"}).output, HasSubstr("<real>0.20000000298023224</real>"));
}

TEST(DefaultsWriteTest, arraysAndDictionariesCanGrow) {
  const MacSystem system;
  system.defaults({"write", "com.apple.dock", "a", "-array", "x", "-int", "2"});
  system.defaults({"write", "com.apple.dock", "a", "-array-add", "-bool", "yes"});
  EXPECT_EQ(system.value("a"), "(\n    x,\n    2,\n    1\n)");
  system.defaults({"write", "com.apple.dock", "d", "-dict", "x", "1", "y", "2"});
  system.defaults({"write", "com.apple.dock", "d", "-dict-add", "y", "-float", "0.5", "z", "3"});
  EXPECT_EQ(system.value("d"), "{\n    x = 1;\n    y = 0.5;\n    z = 3;\n}");
  system.defaults({"write", "com.apple.dock", "new", "-array-add", "x"});
  EXPECT_EQ(system.value("new"), "(\n    x\n)");
}

TEST(DefaultsWriteTest, propertyListTextIsAValueOnlyWithoutATypeFlag) {
  const MacSystem system;
  for (const auto& [text, shown] : std::map<std::string, std::string>{
           {"()", "(\n)"},
           {"{}", "{\n}"},
           {"(a, 2)", "(\n    a,\n    2\n)"},
           {"{ a = b; }", "{\n    a = b;\n}"},
           {"<0fbd77>", "<0fbd77>"},
           {"<dict><key>a</key><true/></dict>", "{\n    a = 1;\n}"},
           {"hello world", "hello world"},
           {"\"hello world\"", "hello world"},
           {"\"hello\" world", "\"hello\" world"},
           {"a (b", "a (b"},
       }) {
    EXPECT_EQ(system.defaults({"write", "com.apple.dock", "k", text}).status, 0) << text;
    EXPECT_EQ(system.value("k"), shown);
    EXPECT_EQ(system.defaults({"write", "com.apple.dock", "k", "-string", text}).status, 0) << text;
    EXPECT_EQ(system.value("k"), text);
  }
  EXPECT_EQ(system.defaults({"write", "com.apple.dock", "k", "-array", "(a)", "<dict/>"}).status, 0);
  EXPECT_EQ(system.value("k"), "(\n        (\n        a\n    ),\n        {\n    }\n)");
}

TEST(DefaultsWriteTest, aWholePropertyListInXmlIsAValueOfItsType) {
  const MacSystem system;
  const auto list = [](const std::string& value) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
)" + value +
           "\n</plist>";
  };
  for (const auto& [value, shown] : std::map<std::string, std::pair<std::string, std::string>>{
           {"<true/>", {"boolean", "1"}},
           {"<false/>", {"boolean", "0"}},
           {"<real>0.150000</real>", {"float", "0.15"}},
           {"<integer>48</integer>", {"integer", "48"}},
           {"<string>suck</string>", {"string", "suck"}},
       }) {
    EXPECT_EQ(system.defaults({"write", "com.apple.dock", "k", list(value)}).status, 0) << value;
    EXPECT_EQ(system.defaults({"read-type", "com.apple.dock", "k"}).output, "Type is " + shown.first + "\n");
    EXPECT_EQ(system.value("k"), shown.second);
  }
  const std::string last = system.value("k");
  for (const char* damaged : {"<true/><true/>", "<true>", "", "<color/>"}) {
    EXPECT_NE(system.defaults({"write", "com.apple.dock", "k", list(damaged)}).status, 0) << damaged;
    EXPECT_EQ(system.value("k"), last);
  }
}

TEST(DefaultsWriteTest, everyOtherKeySurvivesToTheBit) {
  const MacSystem system;
  const PropertyList list = everyType();
  system.store(binaryOf(list));
  EXPECT_EQ(system.defaults({"write", "com.apple.dock", "mineffect", "suck"}).status, 0);
  plist_dict_set_item(list.get(), "mineffect", plist_new_string("suck"));
  EXPECT_EQ(fileContent(system.dockStore()), binaryOf(list));
  EXPECT_EQ(system.defaults({"delete", "com.apple.dock", "mineffect"}).status, 0);
  plist_dict_remove_item(list.get(), "mineffect");
  EXPECT_EQ(fileContent(system.dockStore()), binaryOf(list));
}

TEST(DefaultsWriteTest, unsignedIntegersKeepTheirSign) {
  const MacSystem system;
  system.store(R"(<plist version="1.0"><dict><key>k</key><integer>18446744073709551615</integer></dict></plist>)");
  EXPECT_EQ(system.defaults({"write", "com.apple.dock", "x", "y"}).status, 0);
  EXPECT_EQ(system.value("k"), "18446744073709551615");
}

}  // namespace
}  // namespace tarnwell::standin
