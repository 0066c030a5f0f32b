#include "kit/controls/RichText.h"

#include "kit/host/Host.h"

namespace tarnwell::kit {

void RichText::setText(StyledText text) {
  if (text != text_) {
    text_ = std::move(text);
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

std::vector<const StyledText::Run*> RichText::links() const {
  std::vector<const StyledText::Run*> links;
  for (const StyledText::Paragraph& paragraph : text_.paragraphs) {
    for (const StyledText::Run& run : paragraph.runs) {
      if (!run.link.empty()) {
        links.push_back(&run);
      }
    }
  }
  return links;
}

void RichText::follow(int link) {
  const auto all = links();
  const auto index = static_cast<std::size_t>(link);
  if (follow_ && isEnabled() && link >= 0 && index < all.size()) {
    send([follow = follow_, address = all[index]->link] { follow(address); });
  }
}

std::vector<AccessiblePart> RichText::accessibleParts() const {
  std::vector<AccessiblePart> parts;
  for (const StyledText::Run* link : links()) {
    parts.push_back({.name = link->text});
  }
  return parts;
}

Accessible RichText::ownAccessible() const {
  Accessible told = {.role = AccessibleRole::document, .value = plainText()};
  if (!links().empty()) {
    told.actions = {AccessibleAction::choosePart};
  }
  return told;
}

std::unique_ptr<Peer> RichText::makePeer(Host& host, Peer& parent) { return host.peer(*this, parent); }

}  // namespace tarnwell::kit
