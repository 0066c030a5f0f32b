#include "host/linux/DesktopEntry.h"

#include <gtest/gtest.h>

namespace tarnwell::host_linux {
namespace {

constexpr const char* edited =
    "# Mine.\n"
    "[Desktop Entry]\n"
    "Name=Tarnwell\n"
    "Name[de]=Anders\n"
    "Exec = tarnwell  \n"
    "\n"
    "[Desktop Action settings]\n"
    "Exec=other\n"
    "Hidden=true\n";

TEST(DesktopEntryTest, aTextComesBackAsItWas) {
  for (const std::string text :
       {"", "\n", "[Desktop Entry]", "[Desktop Entry]\r\nExec=a\r\n", "no entry\n\n", edited}) {
    EXPECT_EQ(DesktopEntry(text).text(), text);
  }
}

TEST(DesktopEntryTest, valuesComeFromTheirGroupWithoutTheBlanksAround) {
  const DesktopEntry entry(edited);
  EXPECT_EQ(entry.value("Exec"), "tarnwell");
  EXPECT_EQ(entry.value("Name"), "Tarnwell");
  EXPECT_EQ(entry.value("Hidden"), std::nullopt);
  EXPECT_EQ(entry.value("# Mine."), std::nullopt);
}

TEST(DesktopEntryTest, theLastOfTwoCounts) {
  EXPECT_EQ(DesktopEntry("[Desktop Entry]\nA=1\nA=2\n").value("A"), "2");
  EXPECT_EQ(DesktopEntry("[Desktop Entry]\nA=1\n[X]\nA=2\n[Desktop Entry]\nA=3\n").value("A"), "3");
}

TEST(DesktopEntryTest, truthIsWrittenInTwoWays) {
  struct Row {
    std::string value = {};
    bool isTrue = false;
    bool isFalse = false;
  };
  for (const Row& row : {Row{"true", true, false}, Row{"1", true, false}, Row{"false", false, true},
                         Row{"0", false, true}, Row{"True", false, false}, Row{"", false, false}}) {
    const DesktopEntry entry("[Desktop Entry]\nHidden=" + row.value + "\n");
    EXPECT_EQ(entry.isTrue("Hidden"), row.isTrue) << row.value;
    EXPECT_EQ(entry.isFalse("Hidden"), row.isFalse) << row.value;
  }
}

TEST(DesktopEntryTest, settingChangesOneLineInItsPlace) {
  DesktopEntry entry("[Desktop Entry]\nA=1\nB=2\n[Other]\nA=3\n");
  entry.set("A", "9");
  EXPECT_EQ(entry.text(), "[Desktop Entry]\nA=9\nB=2\n[Other]\nA=3\n");
}

TEST(DesktopEntryTest, aNewKeyFollowsTheHeaderAndGoesWithoutATrace) {
  DesktopEntry entry(edited);
  entry.set("Hidden", "true");
  EXPECT_TRUE(entry.isTrue("Hidden"));
  EXPECT_NE(entry.text().find("[Desktop Entry]\nHidden=true\nName=Tarnwell\n"), std::string::npos);
  entry.erase("Hidden");
  EXPECT_EQ(entry.text(), edited);
}

TEST(DesktopEntryTest, erasingTakesEachLineOfTheKey) {
  DesktopEntry entry("[Desktop Entry]\nA=1\nB=2\n A = 3\n");
  entry.erase("A");
  EXPECT_EQ(entry.text(), "[Desktop Entry]\nB=2\n");
}

TEST(DesktopEntryTest, aTextWithoutTheGroupGetsIt) {
  for (const auto& [before, after] :
       std::vector<std::pair<std::string, std::string>>{{"", "[Desktop Entry]\nA=1\n"},
                                                        {"# Mine.\n", "# Mine.\n[Desktop Entry]\nA=1\n"},
                                                        {"# Mine.", "# Mine.\n[Desktop Entry]\nA=1"}}) {
    DesktopEntry entry(before);
    entry.set("A", "1");
    EXPECT_EQ(entry.text(), after);
  }
}

TEST(ExecValueTest, argumentsAreQuotedWhereTheyMustBe) {
  const std::vector<std::pair<std::vector<std::string>, std::string>> table = {
      {{"/usr/bin/tarnwell"}, "/usr/bin/tarnwell"},
      {{"/usr/bin/tarnwell", "--launched-at-login"}, "/usr/bin/tarnwell --launched-at-login"},
      {{"/opt/my programs/tarnwell", "x"}, "\"/opt/my programs/tarnwell\" x"},
      {{"/a", ""}, "/a \"\""},
      {{"/a", "b=c"}, "/a b=c"},
      {{"/100%"}, "/100%%"},
      {{"/100 %f"}, "\"/100 %%f\""},
      {{"/a\"b"}, R"("/a\\"b")"},
      {{"/a$HOME"}, R"("/a\\$HOME")"},
      {{"/a`b`"}, R"("/a\\`b\\`")"},
      {{"/a\\b"}, R"("/a\\\\b")"},
      {{"/it's"}, "\"/it's\""},
      {{"/a\nb\tc\rd"}, R"("/a\nb\tc\rd")"},
      {{"/Äpfel/tarnwell"}, "/Äpfel/tarnwell"}};
  for (const auto& [arguments, value] : table) {
    EXPECT_EQ(execValue(arguments), value);
  }
}

TEST(ExecValueTest, theProgramIsReadBackAsItWas) {
  for (const char* path : {"/usr/bin/tarnwell", "/opt/my programs/tarnwell", "/100%", "/100 %f", "/a\"b", "/a$HOME",
                           "/a`b`", "/a\\b", "/it's", "/a\nb\tc\rd", "/Äpfel/tarnwell", "/a%%b", "/ends in \\"}) {
    EXPECT_EQ(programOf(*execValue({path, "--launched-at-login"})), path);
    EXPECT_EQ(programOf(*execValue({path})), path);
  }
}

TEST(ExecValueTest, aReturnAloneIsQuotedLikeOtherBlanks) {
  EXPECT_EQ(execValue({"/a\rb"}), "\"/a\\rb\"");
  EXPECT_EQ(programOf(*execValue({"/a\rb", "--launched-at-login"})), "/a\rb");
}

TEST(ExecValueTest, whatHoldsNoWordStartsNoProgram) {
  for (const char* value : {"", " ", "\"", "\"/never closed", "\"\" x"}) {
    EXPECT_EQ(programOf(value), "") << value;
  }
}

TEST(ExecValueTest, eachReservedCharacterIsQuoted) {
  for (const char c : std::string(" '><~|&;*?#()")) {
    const std::string path = std::string("/a") + c + "b";
    EXPECT_EQ(execValue({path}), "\"" + path + "\"");
  }
}

TEST(ExecValueTest, aProgramWithAnEqualSignCannotBeNamed) {
  EXPECT_EQ(execValue({"/a=b/tarnwell"}), std::nullopt);
  EXPECT_EQ(execValue({}), std::nullopt);
}

}  // namespace
}  // namespace tarnwell::host_linux
