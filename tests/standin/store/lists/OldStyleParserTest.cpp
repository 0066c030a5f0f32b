#include "standin/store/lists/OldStyleText.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "standin/store/lists/PropertyList.h"

namespace tarnwell::standin {
namespace {

// With what separates tokens left out, so that only the structure is compared.
std::string structureOf(const std::string& text) {
  const PropertyList list = parseOldStyleText(text);
  std::string structure = list ? oldStyleText(list.get()) : "none";
  std::erase_if(structure, [](char c) { return c == ' ' || c == '\n'; });
  return structure;
}

TEST(OldStyleParserTest, understandsWhatAPersonTypes) {
  const std::map<std::string, std::string> texts = {
      {"()", "()"},
      {"( )", "()"},
      {"{}", "{}"},
      {"(a, b)", "(a,b)"},
      {"(a,b,)", "(a,b)"},
      {"(1, 2.5, -3)", R"((1,2.5,"-3"))"},
      {" ( ( a ) , ( ) ) ", "((a),())"},
      {"{ a = b; }", "{a=b;}"},
      {"{a={b=(c,<00 ff>);};\"d e\"='f';}", R"({a={b=(c,<00ff>);};"de"=f;})"},
      {"<0fbd77>", "<0fbd77>"},
      {"<0fbd 7700>", "<0fbd7700>"},
      {"<>", "<>"},
      {R"("a\"b\\c\n\101")", R"("a\"b\\c\nA")"},
      {R"("\U00e9 \Ud83d\Ude00")", R"("\U00e9\Ud83d\Ude00")"},
      {"\"h\xC3\xA9\"", R"("h\U00e9")"},
      {"$a/b:c.d-e", R"("$a/b:c.d-e")"},
      {"azAZ09_", "azAZ09_"},
      {"\t\r\n\v\f a", "a"},
      {"<0aAfF9>", "<0aaff9>"},
      {R"("\1\177\1011")", R"("\001\177A1")"},
      {R"("\a\b\f\n\r\t\v\"\'\\")", R"("\007\010\014\n\015\011\013\"'\\")"},
      {"'a\"b'", R"("a\"b")"},
      {R"("\U41\U00411")", "AA1"},
      {R"("\Ud7ff\Ue000\Uffff")", R"("\Ud7ff\Ue000\Uffff")"},
      {R"("\Ud800\Udc00\Udbff\Udfff")", R"("\Ud800\Udc00\Udbff\Udfff")"},
  };
  for (const auto& [text, structure] : texts) {
    EXPECT_EQ(structureOf(text), structure) << text;
  }
}

TEST(OldStyleParserTest, refusesWhatIsNotWhole) {
  for (const std::string text : {"",
                                 " ",
                                 "(",
                                 ")",
                                 "(a",
                                 "(a b)",
                                 "(,)",
                                 "(a))",
                                 "() x",
                                 "{",
                                 "{a}",
                                 "{a=b}",
                                 "{a;}",
                                 "{a=;}",
                                 "{=b;}",
                                 "{(a)=b;}",
                                 "{a=b;a=c;}",
                                 "<",
                                 "<0>",
                                 "<0g>",
                                 "<0f 0>",
                                 "<0fbd77",
                                 "\"a",
                                 "\"a\\",
                                 R"("\000")",
                                 R"("\377")",
                                 R"("\q")",
                                 R"("\U")",
                                 R"("\Ud83d")",
                                 R"("\Ude00")",
                                 R"("\Ud83d\U0041")",
                                 R"("\Ud800\Ud800")",
                                 R"("\Ud800\Ue000")",
                                 R"("\Udc00")",
                                 R"("\Udfff")",
                                 R"("\Ud800x")",
                                 R"("\200")",
                                 R"("\8")",
                                 "a`",
                                 "a@",
                                 "a[",
                                 "a|",
                                 "a;",
                                 "'a\"",
                                 "(a,,b)",
                                 "{a=b,}",
                                 "hello world"}) {
    EXPECT_EQ(structureOf(text), "none") << text;
  }
}

TEST(OldStyleParserTest, nestingHasALimit) {
  EXPECT_EQ(parseOldStyleText(std::string(100'000, '(')), nullptr);
  const auto nested = [](std::size_t depth) { return std::string(depth, '(') + "a" + std::string(depth, ')'); };
  EXPECT_NE(parseOldStyleText(nested(deepestNesting)), nullptr);
  EXPECT_EQ(parseOldStyleText(nested(deepestNesting + 1)), nullptr);
}

TEST(OldStyleParserTest, whatIsPrintedIsUnderstood) {
  const std::string text = R"({ "a b" = ( "\001\n\"", { }, <00ff> ); c = "h\U00e9 \Ud83d\Ude00"; })";
  const PropertyList list = parseOldStyleText(text);
  ASSERT_NE(list, nullptr);
  const PropertyList again = parseOldStyleText(oldStyleText(list.get()));
  ASSERT_NE(again, nullptr);
  EXPECT_TRUE(isSame(list.get(), again.get()));
}

}  // namespace
}  // namespace tarnwell::standin
