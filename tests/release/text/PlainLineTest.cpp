#include "release/text/PlainLine.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "system/base/Utf8.h"

namespace tarnwell::release {
namespace {

using namespace std::string_literals;

constexpr std::size_t enough = 100;

std::string between(char32_t codePoint) {
  std::string text = "a";
  system::appendCodePoint(text, codePoint);
  return text + 'b';
}

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

TEST(PlainLine, leavesOutNoneBesideTheInvisibleOnes) {
  for (const char32_t blank :
       {0x09U, 0x0dU, 0x20U, 0x85U, 0xa0U, 0x1680U, 0x2000U, 0x200aU, 0x2028U, 0x2029U, 0x202fU, 0x205fU, 0x3000U}) {
    EXPECT_EQ(plainLine(between(blank), enough), "a b") << std::hex << std::uint32_t{blank};
  }
  for (const char32_t unseen :
       {0x00U,   0x08U,   0x0eU,   0x1fU,   0x7fU,   0x84U,   0x86U,    0x9fU,   0xadU,   0x061cU,
        0x180eU, 0x200bU, 0x200fU, 0x202aU, 0x202eU, 0x2060U, 0x206fU,  0xfdd0U, 0xfdefU, 0xfe00U,
        0xfe0fU, 0xfeffU, 0xfff0U, 0xfffcU, 0xfffeU, 0xffffU, 0xe0000U, 0xe0fffU}) {
    EXPECT_EQ(plainLine(between(unseen), enough), "ab") << std::hex << std::uint32_t{unseen};
  }
  for (const char32_t seen :
       {0x21U,   0x7eU,   0xa1U,   0xacU,   0xaeU,   0x061bU, 0x061dU, 0x167fU,  0x1681U,  0x180dU,
        0x180fU, 0x1fffU, 0x2010U, 0x2027U, 0x2030U, 0x205eU, 0x2070U, 0x2fffU,  0x3001U,  0xfdcfU,
        0xfdf0U, 0xfdffU, 0xfe10U, 0xfefeU, 0xff00U, 0xffefU, 0xfffdU, 0x10000U, 0xdffffU, 0xe1000U}) {
    EXPECT_EQ(plainLine(between(seen), enough), between(seen)) << std::hex << std::uint32_t{seen};
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
