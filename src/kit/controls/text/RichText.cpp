#include "kit/controls/text/RichText.h"

namespace tarnwell::kit {

void RichText::setText(StyledText text) {
  if (text != text_) {
    text_ = std::move(text);
    findLinks();
    changed(Aspect::title);
  }
}

std::string RichText::plainText(const StyledText::Paragraph& paragraph) {
  std::string text;
  if (paragraph.style == StyledText::Paragraph::Style::item) {
    text = paragraph.number == 0 ? "• " : std::to_string(paragraph.number) + ". ";
  }
  for (const StyledText::Run& run : paragraph.runs) {
    text += run.text;
  }
  return text;
}

std::string RichText::plainText() const {
  std::string text;
  for (const StyledText::Paragraph& paragraph : text_.paragraphs) {
    text += (text.empty() ? "" : "\n") + plainText(paragraph);
  }
  return text;
}

void RichText::findLinks() {
  links_.clear();
  for (const StyledText::Paragraph& paragraph : text_.paragraphs) {
    for (std::size_t run = 0; run < paragraph.runs.size(); ++run) {
      const StyledText::Run& read = paragraph.runs[run];
      if (paragraph.beginsLink(run)) {
        links_.push_back({.address = read.link});
      }
      if (!read.link.empty()) {
        links_.back().name += read.text;
      }
    }
  }
}

void RichText::follow(int link) {
  const auto index = static_cast<std::size_t>(link);
  if (isEnabled() && link >= 0 && index < links_.size()) {
    send(deferred(follow_, links_[index].address));
  }
}

std::vector<AccessiblePart> RichText::accessibleParts() const {
  std::vector<AccessiblePart> parts;
  for (const Link& link : links_) {
    parts.push_back({.name = link.name});
  }
  return parts;
}

Accessible RichText::ownAccessible() const {
  Accessible told = {.role = AccessibleRole::document, .value = plainText()};
  if (!links_.empty()) {
    told.actions = {AccessibleAction::choosePart};
  }
  return told;
}

}  // namespace tarnwell::kit
