#include "release/protocol/ReleaseNotes.h"

#include <array>
#include <cstdio>

#include "release/text/WebAddress.h"

namespace tarnwell::release {
namespace {

constexpr const char* paragraphWord = "paragraph";
constexpr const char* runWord = "run";
constexpr const char* linkWord = "link";

constexpr std::array styleNames = {"body", "heading", "item", "quote", "code"};
constexpr unsigned highestLevel = 256;  // Of elements within each other, as the library that reads them has it.

/// "heading 2 0"
std::string textOf(const NotesParagraph& paragraph) {
  return styleNames.at(static_cast<std::size_t>(paragraph.style)) + (' ' + std::to_string(paragraph.level)) + ' ' +
         std::to_string(paragraph.number);
}

bool readParagraph(const std::string& text, NotesParagraph& paragraph) {
  std::array<char, 16> name = {};
  char rest = 0;
  if (std::sscanf(text.c_str(), "%15[a-z] %u %u%c", name.data(), &paragraph.level, &paragraph.number, &rest) != 3) {
    return false;
  }
  std::size_t index = 0;
  while (index < styleNames.size() && name.data() != std::string_view(styleNames.at(index))) {
    ++index;
  }
  const bool isKnown = index < styleNames.size();
  paragraph.style = isKnown ? static_cast<NotesParagraph::Style>(index) : NotesParagraph::Style::body;
  return isKnown && paragraph.level <= highestLevel;
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
  return true;
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
    return readParagraph(message.text, notes_.emplace_back());
  }
  if (notes_.empty()) {
    return false;
  }
  auto& runs = notes_.back().runs;
  if (message.word == runWord) {
    return readRun(message.text, runs.emplace_back());
  }
  if (message.word != linkWord || runs.empty() || !isWebAddress(message.text)) {
    return false;
  }
  runs.back().link = message.text;
  return true;
}

}  // namespace tarnwell::release
