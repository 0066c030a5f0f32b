#include "release/protocol/Message.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarnwell::release {
namespace {

/// What is read of bytes that come in pieces of that size; "refused" stands behind what was read before.
std::vector<std::string> readIn(const std::string& bytes, std::size_t piece) {
  std::vector<std::string> read;
  MessageReader reader;
  bool isGood = true;
  for (std::size_t start = 0; isGood && start < bytes.size(); start += piece) {
    isGood = reader.take(std::string_view(bytes).substr(start, piece), [&read](const Message& message) {
      read.push_back(message.word + "=" + message.text);
      return message.text != "enough";
    });
  }
  if (!isGood || !reader.isAtLineEnd()) {
    read.emplace_back(isGood ? "unfinished" : "refused");
  }
  return read;
}

TEST(Message, travelsAsOneLineWhateverItsText) {
  for (const std::string text : {"", " ", "1.0", "two\nlines", "a\\n b \\", "\r\t", "\xc3\xa4\xe2\x80\xa6"}) {
    const std::string line = lineOf({"word", text});
    EXPECT_EQ(line.find('\n'), line.size() - 1);
    for (const std::size_t piece : {1U, 2U, 1000U}) {
      EXPECT_EQ(readIn(line + line, piece), std::vector<std::string>(2, "word=" + text));
    }
  }
}

TEST(Message, thatIsNoneIsRefused) {
  for (const std::string line : {"\n", "word\n", " text\n", "Word text\n", "word1 text\n", "word\ttext\n",
                                 "wo\xc3rd text\n", "word \xff\n", "word \\\n", "word \\x\n"}) {
    EXPECT_EQ(readIn("first one\n" + line + "last one\n", 1000), (std::vector<std::string>{"first=one", "refused"}))
        << line;
  }
  EXPECT_EQ(readIn("word text", 3), std::vector<std::string>{"unfinished"});
}

TEST(Message, endsTheReadingWhereItsReaderSaysSo) {
  EXPECT_EQ(readIn("word enough\nword more\n", 1000), (std::vector<std::string>{"word=enough", "refused"}));
}

TEST(Message, isLimitedInItsLengthAndInItsNumber) {
  const std::string longest = "word " + std::string(MessageReader::maximumLine - 5, 'x') + '\n';
  EXPECT_EQ(readIn(longest, longest.size()).size(), 1U);
  EXPECT_NE(readIn(longest, 4096).back(), "refused");
  EXPECT_EQ(readIn("x" + longest, 4096), std::vector<std::string>{"refused"});
  const std::string line = "word " + std::string(1018, 'x') + '\n';
  std::string many;
  while (many.size() < MessageReader::maximumLength) {
    many += line;
  }
  EXPECT_NE(readIn(many, 65536).back(), "refused");
  EXPECT_EQ(readIn(many + line, 65536).back(), "refused");
}

}  // namespace
}  // namespace tarnwell::release
