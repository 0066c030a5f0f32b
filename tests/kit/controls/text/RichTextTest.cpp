#include "kit/controls/text/RichText.h"

#include <gtest/gtest.h>

#include "kit/ShownControl.h"

namespace tarnwell::kit {
namespace {

using Style = StyledText::Paragraph::Style;

StyledText sample() {
  return {{{.style = Style::heading, .level = 2, .runs = {{.text = "New"}}},
           {.style = Style::item, .level = 1, .number = 3, .runs = {{.text = "third "}, {.text = "here", .link = "a"}}},
           {.runs = {{.text = "line\nline"}, {.text = "there", .link = "b"}}}}};
}

TEST(RichTextTest, aTextTellsThePeerOnce) {
  ShownControl<RichText> text;
  text->setText(sample());
  text->setText(sample());
  EXPECT_EQ(text.told(), Lines{"rich text: title"});
}

TEST(RichTextTest, isToldAParagraphALine) {
  RichText text;
  EXPECT_EQ(text.plainText(), "");
  text.setText(sample());
  EXPECT_EQ(text.plainText(), "New\n3. third here\nline\nlinethere");
  EXPECT_EQ(RichText::plainText({.style = Style::item, .runs = {{.text = "one"}}}), "• one");
}

TEST(RichTextTest, leadsWhereItsLinksLeadAndNowhereElse) {
  std::vector<std::string> followed;
  RichText text;
  text.setText(sample());
  text.follow(0);
  text.setLinkAction([&followed](const std::string& link) { followed.push_back(link); });
  for (const int link : {-1, 0, 1, 2}) {
    text.follow(link);
  }
  text.setEnabled(false);
  text.follow(0);
  EXPECT_EQ(followed, (std::vector<std::string>{"a", "b"}));
}

TEST(RichTextTest, runsInARowThatLeadToOnePlaceAreOneLink) {
  RichText text;
  text.setText({{{.runs = {{.text = "the ", .link = "a"}, {.text = "bold", .isBold = true, .link = "a"}}},
                 {.runs = {{.text = "again", .link = "a"}, {.text = "else", .link = "b"}}}}});
  EXPECT_EQ(text.accessibleParts(),
            (std::vector<AccessiblePart>{{.name = "the bold"}, {.name = "again"}, {.name = "else"}}));
}

TEST(RichTextTest, isReachedByTheKeyboardForItsLinks) {
  RichText text;
  EXPECT_FALSE(text.takesFocus());
  EXPECT_TRUE(text.accessible().actions.empty());
  text.setText(sample());
  EXPECT_TRUE(text.takesFocus());
  EXPECT_EQ(text.accessibleParts(), (std::vector<AccessiblePart>{{.name = "here"}, {.name = "there"}}));
}

}  // namespace
}  // namespace tarnwell::kit
