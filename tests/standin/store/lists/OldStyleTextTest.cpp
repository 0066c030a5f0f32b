#include "standin/store/lists/OldStyleText.h"

#include <gtest/gtest.h>

#include <vector>

#include "standin/MacSystem.h"

namespace tarnwell::standin {
namespace {

struct Quoting {
  const char* text = "";
  const char* quoted = "";
};

const std::vector<Quoting> quotings = {
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
    {"azAZ09", "azAZ09"},
    {"`", R"("`")"},
    {"{", R"("{")"},
    {"@", R"("@")"},
    {"[", R"("[")"},
    {":", R"(":")"},
    {"\x1F", R"("\037")"},
    {" ", R"(" ")"},
    {"~", R"("~")"},
    {"\x7F", R"("\177")"},
    {"\xC2\x80", R"("\U0080")"},
    {"\xEF\xBF\xBF", R"("\Uffff")"},
    {"\xF0\x90\x80\x80", R"("\Ud800\Udc00")"},
    {"\xF4\x8F\xBF\xBF", R"("\Udbff\Udfff")"},
};

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
