#include "updatewindows/NotesView.h"

#include "release/text/WebAddress.h"
#include "updatewindows/UpdateView.h"
#include "view/controls/buttons/Link.h"
#include "view/controls/containers/ScrollView.h"
#include "view/controls/text/RichText.h"

namespace tarnwell::updatewindows {
namespace {

using view::View;

constexpr double mostHeight = 190;

kit::StyledText styled(const release::ReleaseNotes& notes) {
  kit::StyledText text;
  for (const auto& paragraph : notes) {
    static_assert(static_cast<int>(kit::StyledText::Paragraph::Style::code) ==
                  static_cast<int>(release::NotesParagraph::Style::code));  // The last of both.
    auto& styled = text.paragraphs.emplace_back(
        kit::StyledText::Paragraph{.style = static_cast<kit::StyledText::Paragraph::Style>(paragraph.style),
                                   .level = paragraph.level,
                                   .number = paragraph.number});
    for (const auto& run : paragraph.runs) {
      styled.runs.push_back(
          {.text = run.text, .isBold = run.isBold, .isItalic = run.isItalic, .isCode = run.isCode, .link = run.link});
    }
  }
  return text;
}

}  // namespace

View notesOf(const release::FeedItem& item) {
  if (item.readNotes.empty()) {
    return release::isWebAddress(item.releaseNotesLink)
               ? View(view::Link{.title = "Read what is new", .destination = item.releaseNotesLink})
               : View(view::EmptyView{});
  }
  return View(view::ScrollView{
                  .title = "Release notes",
                  .content = View(view::RichText{.title = "Release notes", .text = styled(item.readNotes)})})
      .frame({.width = UpdateView::textWidth, .maxHeight = mostHeight});
}

}  // namespace tarnwell::updatewindows
