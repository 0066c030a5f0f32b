#include "host/macos/controls/text/RichTextString.h"

#include "host/macos/look/Conversions.h"
#include "host/macos/look/TextLook.h"

namespace tarnwell::host_macos {
namespace {

using Paragraph = kit::StyledText::Paragraph;
using Run = kit::StyledText::Run;

constexpr double indent = 18;
constexpr double spacing = 6;
constexpr double semibold = 0.3;
// The weight that the platform's regular fonts have.
constexpr double regular = 0;
constexpr double slant = 0.2;

double indentOf(const Paragraph& paragraph) {
  switch (paragraph.style) {
    case Paragraph::Style::item:
      return indent * paragraph.level;
    case Paragraph::Style::quote:
      return indent;
    default:
      return 0;
  }
}

NSParagraphStyle* styleOf(const Paragraph& paragraph) {
  NSMutableParagraphStyle* style = [[[NSMutableParagraphStyle alloc] init] autorelease];
  const double inset = indentOf(paragraph);
  // The mark of an item stands in front of its text.
  [style setFirstLineHeadIndent:paragraph.style == Paragraph::Style::item ? inset - indent : inset];
  [style setHeadIndent:inset];
  [style setParagraphSpacing:spacing];
  return style;
}

NSFont* fontFor(const Paragraph& paragraph, const Run& run) {
  if (paragraph.style == Paragraph::Style::heading) {
    return fontOf(paragraph.level == 1 ? kit::FontRole::title : kit::FontRole::headline);
  }
  NSFont* body = fontOf(kit::FontRole::body);
  if (paragraph.style == Paragraph::Style::code || run.isCode) {
    return [NSFont monospacedSystemFontOfSize:[body pointSize] weight:run.isBold ? semibold : regular];
  }
  return run.isBold ? [NSFont boldSystemFontOfSize:[body pointSize]] : body;
}

class Writer {
 public:
  NSAttributedString* write(const kit::StyledText& text) {
    for (const Paragraph& paragraph : text.paragraphs) {
      if ([string_ length] > 0) {
        append(@"\n", {}, paragraph);
      }
      write(paragraph);
    }
    return string_;
  }

 private:
  void write(const Paragraph& paragraph) {
    // What stands in front of the runs.
    Paragraph bare = paragraph;
    bare.runs.clear();
    append(toNSString(kit::RichText::plainText(bare)), {}, paragraph);
    for (std::size_t index = 0; index < paragraph.runs.size(); ++index) {
      links_ += paragraph.beginsLink(index) ? 1 : 0;
      append(toNSString(paragraph.runs[index].text), paragraph.runs[index], paragraph);
    }
  }

  void append(NSString* text, const Run& run, const Paragraph& paragraph) {
    const bool isQuoted = paragraph.style == Paragraph::Style::quote;
    NSMutableDictionary* look = [NSMutableDictionary dictionary];
    [look setObject:fontFor(paragraph, run) forKey:NSFontAttributeName];
    [look setObject:styleOf(paragraph) forKey:NSParagraphStyleAttributeName];
    [look setObject:colorOf(isQuoted ? kit::ColorRole::secondary : kit::ColorRole::primary)
             forKey:NSForegroundColorAttributeName];
    if (run.isItalic) {
      [look setObject:[NSNumber numberWithDouble:slant] forKey:NSObliquenessAttributeName];
    }
    if (!run.link.empty()) {
      [look setObject:[NSString stringWithFormat:@"%d", links_ - 1] forKey:NSLinkAttributeName];
    }
    [string_ appendAttributedString:[[[NSAttributedString alloc] initWithString:text attributes:look] autorelease]];
  }

  NSMutableAttributedString* string_ = [[[NSMutableAttributedString alloc] init] autorelease];
  int links_ = 0;
};

}  // namespace

NSAttributedString* attributedString(const kit::StyledText& text) { return Writer().write(text); }

}  // namespace tarnwell::host_macos
