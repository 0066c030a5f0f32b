#include "kit/controls/TextLabel.h"

#include <utility>

#include "kit/host/Host.h"

namespace tarnwell::kit {

void TextLabel::setText(std::string text) {
  if (text != text_) {
    text_ = std::move(text);
    changed(Aspect::title);
  }
}

void TextLabel::setStyle(const Style& style) {
  if (style != style_) {
    style_ = style;
    changed(Aspect::style);
  }
}

std::unique_ptr<Peer> TextLabel::makePeer(Host& host, Peer& parent) { return host.peer(*this, parent); }

}  // namespace tarnwell::kit
