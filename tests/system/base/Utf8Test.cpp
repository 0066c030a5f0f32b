#include "system/base/Utf8.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tarnwell::system {
namespace {

TEST(Utf8Test, wellFormedTextIsUtf8) {
  const std::vector<std::string> texts = {
      "",
      "plain",
      std::string("a\0b", 3),
      "\x7F",
      "\xC2\x80",
      "\xDF\xBF",
      "\xE0\xA0\x80",
      "\xED\x9F\xBF",
      "\xEE\x80\x80",
      "\xEF\xBF\xBF",
      "\xEF\xBB\xBF marked",
      "\xF0\x90\x80\x80",
      "\xF4\x8F\xBF\xBF",
      "Größe \u2026 \U0001F600\n",
  };
  for (const std::string& text : texts) {
    EXPECT_TRUE(isUtf8(text)) << text;
  }
}

TEST(Utf8Test, malformedBytesAreNot) {
  const std::vector<std::string> texts = {
      "\x80",  // a continuation with nothing to continue
      "\xBF",
      "\xC0\x80",  // overlong forms, the two-byte NUL among them
      "\xC1\xBF",
      "\xE0\x9F\xBF",
      "\xF0\x8F\xBF\xBF",
      "\xED\xA0\x80",  // surrogates, the first and the last
      "\xED\xBF\xBF",
      "\xF4\x90\x80\x80",  // above U+10FFFF
      "\xF5\x80\x80\x80",
      "\xFE",  // bytes that never occur
      "\xFF",
      "\xC3",  // ends too early
      "\xE2\x80",
      "\xF0\x9F\x98",
      "\xC3(",  // a continuation is missing
      "\xE2(\x80",
      "\xE2\x80(",
      "\xF0\x9F\x98(",
      "good then \xC3\xA4\xA4",  // one continuation too many
  };
  for (const std::string& text : texts) {
    EXPECT_FALSE(isUtf8(text)) << testing::PrintToString(text);
  }
}

TEST(Utf8Test, aCodePointIsWrittenAndReadInItsShortestForm) {
  const std::vector<std::pair<std::uint32_t, std::string>> rows = {
      {'a', "a"},
      {0x7F, "\x7F"},
      {0x80, "\xC2\x80"},
      {0x7FF, "\xDF\xBF"},
      {0x800, "\xE0\xA0\x80"},
      {0xFFFF, "\xEF\xBF\xBF"},
      {0x10000, "\xF0\x90\x80\x80"},
      {0x1F600, "\xF0\x9F\x98\x80"},
      {0x40000, "\xF1\x80\x80\x80"},
      {0x10FFFF, "\xF4\x8F\xBF\xBF"},
  };
  for (const auto& [codePoint, bytes] : rows) {
    std::string text = "before";
    appendCodePoint(text, codePoint);
    EXPECT_EQ(text, "before" + bytes);
    std::string_view rest = bytes;
    EXPECT_EQ(takeCodePoint(rest), codePoint);
    EXPECT_EQ(rest, "");
  }
}

TEST(Utf8Test, whatIsNoCodePointIsLeftWhereItIs) {
  for (std::string_view text : {"", "\xFF", "\xC3"}) {
    const std::string_view before = text;
    EXPECT_EQ(takeCodePoint(text), std::nullopt);
    EXPECT_EQ(text, before);
  }
}

}  // namespace
}  // namespace tarnwell::system
