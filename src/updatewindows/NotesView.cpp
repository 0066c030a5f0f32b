#include "updatewindows/NotesView.h"

#include "release/text/WebAddress.h"
#include "updatewindows/UpdateView.h"
#include "view/controls/Link.h"
#include "view/controls/ScrollView.h"
#include "view/controls/Text.h"
#include "view/layout/Stack.h"

namespace tarnwell::updatewindows {
namespace {

using release::NotesParagraph;
using view::View;

constexpr double mostHeight = 190;
constexpr double inset = 9;
constexpr double betweenParagraphs = 6;

std::string markOf(const NotesParagraph& paragraph) {
  return paragraph.number > 0 ? std::to_string(paragraph.number) + ". " : "• ";
}

View paragraphView(const NotesParagraph& paragraph) {
  using Style = NotesParagraph::Style;
  std::string text = paragraph.style == Style::item ? markOf(paragraph) : "";
  for (const release::NotesRun& run : paragraph.runs) {
    text += run.text;
  }
  return View(view::Text{text}).font(paragraph.style == Style::heading ? kit::FontRole::headline : kit::FontRole::body);
}

}  // namespace

View notesOf(const release::FeedItem& item) {
  if (item.readNotes.empty()) {
    return release::isWebAddress(item.releaseNotesLink)
               ? View(view::Link{.title = "Read what is new", .destination = item.releaseNotesLink})
               : View(view::EmptyView{});
  }
  view::VStack paragraphs{.alignment = kit::TextAlignment::leading, .spacing = betweenParagraphs};
  for (const NotesParagraph& paragraph : item.readNotes) {
    paragraphs.children.push_back(paragraphView(paragraph));
  }
  return View(view::ScrollView{.title = "Release notes", .content = View(paragraphs).padding(inset)})
      .frame({.width = UpdateView::textWidth, .maxHeight = mostHeight});
}

}  // namespace tarnwell::updatewindows
