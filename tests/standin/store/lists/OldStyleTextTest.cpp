#include "standin/store/lists/OldStyleText.h"

#include <gtest/gtest.h>

#include <array>

#include "standin/MacSystem.h"

namespace tarnwell::standin {
namespace {

struct Quoting {
  const char* text = "";
  const char* quoted = "";
};

constexpr std::array<Quoting, 12> quotings = {{
    {"abc", "abc"},
    {"com.apple.dock", "com.apple.dock"},
    {"a_b/c.9", "a_b/c.9"},
    {"autohide-delay", R"("autohide-delay")"},
    {"", R"("")"},
    {"a b", R"("a b")"},
    {R"(a"b\c)", R"("a\"b\\c")"},
    {"a\nb", R"("a\nb")"},
    {"\x01", R"("\001")"},
    {"h\xC3\xA9", R"("h\U00e9")"},
    {"\xF0\x9F\x98\x80", R"("\Ud83d\Ude00")"},
    {"\xFF", R"("\377")"},
}};

TEST(OldStyleTextTest, onlyPlainTextsGoUnquoted) {
  for (const Quoting& each : quotings) {
    EXPECT_EQ(quotedText(each.text), each.quoted);
  }
}

TEST(OldStyleTextTest, everyTypeHasItsText) {
  EXPECT_EQ(oldStyleText(everyType().get()), R"({
    control = "a\001\n\"b";
    data = <00ff01>;
    date = "2023-03-08 20:26:40 +0000";
    least = "-9223372036854775808";
    negative = "-5";
    nested =     {
        "" = "";
        array =         (
            "h\U00e9 \Ud83d\Ude00",
                        (
            )
        );
    };
    no = 0;
    real = 0.1;
    small = "4.94065645841247e-324";
    uid = "{value = 42}";
})");
}

}  // namespace
}  // namespace tarnwell::standin
