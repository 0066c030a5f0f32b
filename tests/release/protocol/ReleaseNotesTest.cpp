#include "release/protocol/ReleaseNotes.h"

#include <gtest/gtest.h>

namespace tarnwell::release {
namespace {

using Style = NotesParagraph::Style;

TEST(ReleaseNotes, arriveAsTheyWereSaid) {
  const ReleaseNotes notes = {
      {.style = Style::heading, .level = 2, .runs = {{.text = "New"}}},
      {.runs = {{.text = "A "},
                {.text = "bold", .isBold = true},
                {.text = " and all", .isBold = true, .isItalic = true, .isCode = true}}},
      {.style = Style::item, .level = 3, .number = 12, .runs = {{.text = "here", .link = "https://updates.invalid/x"}}},
      {.style = Style::code, .runs = {{.text = "  two\n  lines"}}},
      {.style = Style::quote, .runs = {{.text = " "}}}};
  NotesReader reader;
  sayNotes(notes, [&reader](const Message& message) { EXPECT_TRUE(reader.take(message)) << message.text; });
  const ReleaseNotes read = reader.takeNotes();
  ASSERT_EQ(read.size(), notes.size());
  for (std::size_t index = 0; index < notes.size(); ++index) {
    EXPECT_EQ(read[index].style, notes[index].style);
    EXPECT_EQ(read[index].level, notes[index].level);
    EXPECT_EQ(read[index].number, notes[index].number);
    ASSERT_EQ(read[index].runs.size(), notes[index].runs.size());
    for (std::size_t run = 0; run < notes[index].runs.size(); ++run) {
      const NotesRun& one = read[index].runs[run];
      const NotesRun& other = notes[index].runs[run];
      EXPECT_EQ(one.text, other.text);
      EXPECT_EQ(one.link, other.link);
      EXPECT_EQ(std::tuple(one.isBold, one.isItalic, one.isCode),
                std::tuple(other.isBold, other.isItalic, other.isCode));
    }
  }
}

TEST(ReleaseNotes, areRefusedWhereTheyMakeNoSense) {
  EXPECT_FALSE(NotesReader().take({"run", " text"}));
  EXPECT_FALSE(NotesReader().take({"link", "https://updates.invalid/"}));
  for (const char* text : {"", "body", "body 1", "body 1 2 3", "other 0 0", "body x 0", "body 0 0 ", "heading 999 0",
                           "item 1 99999999", "item -4294967200 0"}) {
    EXPECT_FALSE(NotesReader().take({"paragraph", text})) << text;
  }
  for (const Message& message : {Message{"run", "text"}, Message{"run", "x text"},
                                 Message{"link", "https://updates.invalid/"}, Message{"item", ""}}) {
    NotesReader reader;
    EXPECT_TRUE(reader.take({"paragraph", "body 0 0"}));
    EXPECT_FALSE(reader.take(message)) << message.word << " " << message.text;
  }
}

TEST(ReleaseNotes, areOfAsMuchAsPeopleRead) {
  NotesReader paragraphs;
  for (std::size_t count = 0; count < NotesReader::maximumParagraphs; ++count) {
    ASSERT_TRUE(paragraphs.take({"paragraph", "body 0 0"}));
  }
  EXPECT_FALSE(paragraphs.take({"paragraph", "body 0 0"}));
  NotesReader text;
  EXPECT_TRUE(text.take({"paragraph", "body 0 0"}));
  EXPECT_TRUE(text.take({"run", " " + std::string(NotesReader::maximumLength - 1, 'x')}));
  EXPECT_FALSE(text.take({"run", " x"}));
  NotesReader runs;
  EXPECT_TRUE(runs.take({"paragraph", "body 0 0"}));
  for (std::size_t count = 0; count < NotesReader::maximumRuns; ++count) {
    ASSERT_TRUE(runs.take({"run", " x"}));
    ASSERT_EQ(runs.take({"link", "https://updates.invalid/"}), count < NotesReader::maximumLinks);
  }
  EXPECT_FALSE(runs.take({"run", " x"}));
}

TEST(ReleaseNotes, holdNothingThatIsNotSeen) {
  for (const char* text : {" ", " a\x07",
                           " \xe2\x80\xae"
                           "a",
                           " \t"}) {
    NotesReader reader;
    EXPECT_TRUE(reader.take({"paragraph", "body 0 0"}));
    EXPECT_FALSE(reader.take({"run", text})) << text;
  }
}

// What the engine says of a link is no more trusted than a feed.
TEST(ReleaseNotes, leadToPagesOfTheWebAlone) {
  for (const char* address : {"file:///etc/passwd", "javascript:alert(1)", "", "https://"}) {
    NotesReader reader;
    EXPECT_TRUE(reader.take({"paragraph", "body 0 0"}));
    EXPECT_TRUE(reader.take({"run", " text"}));
    EXPECT_FALSE(reader.take({"link", address})) << address;
  }
}

}  // namespace
}  // namespace tarnwell::release
