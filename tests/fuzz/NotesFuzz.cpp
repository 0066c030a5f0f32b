#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz/Require.h"
#include "release/text/PlainLine.h"
#include "release/text/WebAddress.h"
#include "updater/notes/Notes.h"

namespace tarnwell::fuzz {
namespace {

bool hasVisibleLines(std::string_view text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  return line == release::visibleText(line) &&
         (line.size() == text.size() || hasVisibleLines(text.substr(line.size() + 1)));
}

void check(const release::NotesRun& run, bool isCode) {
  require(!run.text.empty());
  require(isCode ? run.text == release::visibleLines(run.text) : hasVisibleLines(run.text));
  require(run.link.empty() || release::isWebAddress(run.link));
}

/// What comes of notes is visible, leads to the web, and can be said and heard again.
void run(std::string_view text) {
  const release::ReleaseNotes notes = updater::readNotes(text);
  release::NotesReader reader;
  release::sayNotes(notes, [&reader](const release::Message& message) { require(reader.take(message)); });
  require(reader.takeNotes().size() == notes.size());
  for (const auto& paragraph : notes) {
    require(!paragraph.runs.empty());
    for (const auto& run : paragraph.runs) {
      check(run, paragraph.style == release::NotesParagraph::Style::code);
    }
  }
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
