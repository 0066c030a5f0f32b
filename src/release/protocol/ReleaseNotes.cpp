#include "release/protocol/ReleaseNotes.h"

#include <algorithm>
#include <array>

#include "release/text/Number.h"
#include "release/text/PlainLine.h"
#include "release/text/WebAddress.h"

namespace tarnwell::release {
namespace {

constexpr const char* paragraphWord = "paragraph";
constexpr const char* runWord = "run";
constexpr const char* linkWord = "link";

constexpr std::array<std::string_view, 5> styleNames = {"body", "heading", "item", "quote", "code"};
constexpr unsigned highestNumber = 1'000'000;
constexpr unsigned highestLevel = 256;  // Of elements within each other, as the library that reads them has it.

/// "heading 2 0"
std::string textOf(const NotesParagraph& paragraph) {
  return std::string(styleNames.at(static_cast<std::size_t>(paragraph.style))) +
         (' ' + std::to_string(paragraph.level)) + ' ' + std::to_string(paragraph.number);
}

/// Takes a word off a text, up to the next space.
std::string_view takeWord(std::string_view& text) {
  const std::string_view word = text.substr(0, text.find(' '));
  text.remove_prefix(std::min(word.size() + 1, text.size()));
  return word;
}

bool readParagraph(std::string_view text, NotesParagraph& paragraph) {
  const auto* style = std::find(styleNames.begin(), styleNames.end(), takeWord(text));
  const auto level = numberIn(takeWord(text));
  const auto number = numberIn(text);
  if (style == styleNames.end() || level.value_or(highestLevel + 1) > highestLevel ||
      number.value_or(highestNumber + 1) > highestNumber) {
    return false;
  }
  paragraph.style = static_cast<NotesParagraph::Style>(style - styleNames.begin());
  paragraph.level = static_cast<unsigned>(*level);
  paragraph.number = static_cast<unsigned>(*number);
  return true;
}

/// "bi bold and italic", " neither".
std::string textOf(const NotesRun& run) {
  return std::string(run.isBold ? "b" : "") + (run.isItalic ? "i" : "") + (run.isCode ? "c" : "") + ' ' + run.text;
}

bool readRun(std::string_view text, NotesRun& run) {
  const std::size_t end = text.find(' ');
  const std::string_view marks = text.substr(0, end);
  if (end == std::string_view::npos || marks.find_first_not_of("bic") != std::string_view::npos) {
    return false;
  }
  const auto has = [marks](char mark) { return marks.find(mark) != std::string_view::npos; };
  run = {.text = std::string(text.substr(end + 1)), .isBold = has('b'), .isItalic = has('i'), .isCode = has('c')};
  return !run.text.empty() && visibleLines(run.text) == run.text;
}

}  // namespace

void sayNotes(const ReleaseNotes& notes, const std::function<void(const Message&)>& say) {
  for (const NotesParagraph& paragraph : notes) {
    say({paragraphWord, textOf(paragraph)});
    for (const NotesRun& run : paragraph.runs) {
      say({runWord, textOf(run)});
      if (!run.link.empty()) {
        say({linkWord, run.link});
      }
    }
  }
}

bool NotesReader::take(const Message& message) {
  if (message.word == paragraphWord) {
    return notes_.size() < maximumParagraphs && readParagraph(message.text, notes_.emplace_back());
  }
  if (notes_.empty()) {
    return false;
  }
  auto& runs = notes_.back().runs;
  if (message.word == runWord) {
    length_ += message.text.size();
    return length_ <= maximumLength && ++runs_ <= maximumRuns && readRun(message.text, runs.emplace_back());
  }
  if (message.word != linkWord || runs.empty() || ++links_ > maximumLinks || !isWebAddress(message.text)) {
    return false;
  }
  runs.back().link = message.text;
  return true;
}

}  // namespace tarnwell::release
