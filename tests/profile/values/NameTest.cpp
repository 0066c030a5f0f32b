#include "profile/values/Name.h"

#include <gtest/gtest.h>

#include <string>

namespace tarnwell::profile {
namespace {

std::string times(int count, const std::string& text) {
  std::string result;
  while (count-- > 0) {
    result += text;
  }
  return result;
}

TEST(NameTest, aNameIsOneLineOfVisibleText) {
  for (const char* name : {"", "quick", R"(a "b" \ 'c' # -->)", "Schnell – für Ünal 🚀"}) {
    EXPECT_TRUE(isProfileName(name)) << name;
  }
  for (const char* text : {"a\nb", "\t", "\x7f", "a\u0085b", "a\u2028b", "a\u202eb", "\ufeff", "a\xff"}) {
    EXPECT_FALSE(isProfileName(text)) << text;
  }
  EXPECT_FALSE(isProfileName(std::string_view("a\0b", 3)));
}

TEST(NameTest, whatIsUnfitEndsWhereVisibleTextBegins) {
  for (const char* text : {"\x1f", "\x7f", "\u009f", "\u061c", "\u200b", "\u200f", "\u2028", "\u202e", "\u2060",
                           "\u206f", "\ufeff", "\ufff9", "\ufffb", "\ufffe", "\uffff"}) {
    EXPECT_FALSE(isProfileName(text)) << text;
  }
  for (const char* name : {" ", "~", "\u00a0", "\u061b", "\u061d", "\u200a", "\u2010", "\u2027", "\u202f", "\u205f",
                           "\u2070", "\ufefe", "\uff00", "\ufff8", "\ufffc", "\ufffd", "\U00010000"}) {
    EXPECT_TRUE(isProfileName(name)) << name;
  }
}

TEST(NameTest, aNameHasSixtyCharactersAtMost) {
  EXPECT_TRUE(isProfileName(times(60, "ü")));
  EXPECT_FALSE(isProfileName(times(61, "u")));
}

TEST(NameTest, whatCannotBeSeenIsMarked) {
  EXPECT_EQ(visible("a\x1b[31m\xff\u202e"), "a\ufffd[31m\ufffd\ufffd");
  EXPECT_EQ(inQuotes("mine\neffect"), "\"mine\ufffdeffect\"");
}

TEST(NameTest, aQuotedTextIsCutOff) {
  EXPECT_EQ(inQuotes(times(60, "ü")), '"' + times(60, "ü") + '"');
  EXPECT_EQ(inQuotes(times(61, "ü")), '"' + times(60, "ü") + "…\"");
}

TEST(NameTest, aLiteralKeepsItsQuotesAndBackslashes) { EXPECT_EQ(stringLiteral(R"(a "b" \n)"), R"("a \"b\" \\n")"); }

}  // namespace
}  // namespace tarnwell::profile
