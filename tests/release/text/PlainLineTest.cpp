#include "release/text/PlainLine.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace tarnwell::release {
namespace {

using namespace std::string_literals;

constexpr std::size_t enough = 100;

TEST(PlainLine, leavesAPlainTextAlone) {
  for (const std::string text :
       {"", "Tarnwell 1.2", "Größer · schneller – 更新", "\xf0\x9f\x8e\x89 \xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d"}) {
    EXPECT_EQ(plainLine(text, enough), text);
  }
}

TEST(PlainLine, makesOneSpaceOfBlanksAndLineEnds) {
  for (const std::string blank : {" ", "   ", "\n", "\r\n", "\t \v\f", "\xc2\x85", "\xc2\xa0", "\xe2\x80\xa8",
                                  "\xe2\x80\xa9", "\xe2\x80\x83", "\xe3\x80\x80"}) {
    EXPECT_EQ(plainLine("a" + blank + "b", enough), "a b");
    EXPECT_EQ(plainLine(blank + "a" + blank, enough), "a");
    EXPECT_EQ(plainLine(blank, enough), "");
  }
}

TEST(PlainLine, leavesOutInvisibleCharacters) {
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"a\0b\x01\x1b[31mc\x7f"s, "ab[31mc"},
      {"a\xc2\x9b"  // A control of one byte elsewhere.
       "b",
       "ab"},
      {"a\xc2\xad\xe2\x80\x8b\xe2\x80\x8d\xef\xbb\xbf"
       "b",
       "ab"},
      {"a\xf3\xa0\x80\xa1"  // A letter for programs only.
       "b",
       "ab"},
  };
  for (const auto& [text, line] : rows) {
    EXPECT_EQ(plainLine(text, enough), line);
  }
}

TEST(PlainLine, leavesOutWhatTurnsTheDirectionOfWriting) {
  for (const std::string mark :
       {"\xd8\x9c", "\xe2\x80\x8e", "\xe2\x80\x8f", "\xe2\x80\xaa", "\xe2\x80\xab", "\xe2\x80\xac", "\xe2\x80\xad",
        "\xe2\x80\xae", "\xe2\x81\xa6", "\xe2\x81\xa7", "\xe2\x81\xa8", "\xe2\x81\xa9"}) {
    EXPECT_EQ(plainLine("2." + mark + "0", enough), "2.0");
  }
}

TEST(PlainLine, leavesOutBytesThatAreNoText) {
  const std::vector<std::string> rows = {
      "\x80",    "\xff", "\xc3", "\xc0\xaf", "\xe0\x80\xaf", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\xf5\x80\x80\x80",
      "\xe2\x80"};
  for (const std::string& row : rows) {
    EXPECT_EQ(plainLine("a" + row + "b", enough), "ab");
    EXPECT_EQ(plainLine(row, enough), "");
  }
}

TEST(PlainLine, endsInAnEllipsisWhereItIsTooLong) {
  EXPECT_EQ(plainLine("abc", 3), "abc");
  EXPECT_EQ(plainLine("abc  ", 3), "abc");
  EXPECT_EQ(plainLine("abcd", 3), "abc…");
  EXPECT_EQ(plainLine("ab d", 3), "ab…");
  EXPECT_EQ(plainLine("äöüß", 3), "äöü…");
  EXPECT_EQ(plainLine("a\x1b\x1b\x1b\x1b", 1), "a");
  EXPECT_EQ(plainLine(std::string(1'000'000, 'x'), 5), "xxxxx…");
  EXPECT_EQ(plainLine("a", 0), "…");
}

}  // namespace
}  // namespace tarnwell::release
