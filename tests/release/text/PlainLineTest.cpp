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
       {0x09, 0x0d, 0x20, 0x85, 0xa0, 0x1680, 0x2000, 0x200a, 0x2028, 0x2029, 0x202f, 0x205f, 0x3000}) {
    EXPECT_EQ(plainLine(between(blank), enough), "a b") << std::hex << std::uint32_t{blank};
  }
  for (const char32_t unseen : {0x00,   0x08,   0x0e,   0x1f,   0x7f,   0x84,   0x86,    0x9f,   0xad,   0x061c,
                                0x180e, 0x200b, 0x200f, 0x202a, 0x202e, 0x2060, 0x206f,  0xfdd0, 0xfdef, 0xfe00,
                                0xfe0f, 0xfeff, 0xfff0, 0xfffc, 0xfffe, 0xffff, 0xe0000, 0xe0fff}) {
    EXPECT_EQ(plainLine(between(unseen), enough), "ab") << std::hex << std::uint32_t{unseen};
  }
  for (const char32_t seen : {0x21,   0x7e,   0xa1,   0xac,   0xae,   0x061b, 0x061d, 0x167f,  0x1681,  0x180d,
                              0x180f, 0x1fff, 0x2010, 0x2027, 0x2030, 0x205e, 0x2070, 0x2fff,  0x3001,  0xfdcf,
                              0xfdf0, 0xfdff, 0xfe10, 0xfefe, 0xff00, 0xffef, 0xfffd, 0x10000, 0xdffff, 0xe1000}) {
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
