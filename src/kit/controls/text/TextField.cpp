#include "kit/controls/text/TextField.h"

#include <utility>

#include "kit/control/Window.h"

namespace tarnwell::kit {

void TextField::setText(std::string text) {
  if (text != text_) {
    text_ = std::move(text);
    if (!editing_) {
      changed(Aspect::value);
    }
  }
}

void TextField::type(std::string text) {
  afterCommit(*this, [&] {
    if (isEnabled()) {
      typed_ = std::move(text);
      editing_ = true;
    }
    changed(Aspect::value);
  });
}

void TextField::commit() {
  if (!std::exchange(editing_, false)) {
    return;
  }
  // The typed text is not the text yet: the owner decides, and the field then shows what it decided.
  changed(Aspect::value);
  send(deferred(action_, typed_));
}

void TextField::cancel() {
  if (std::exchange(editing_, false)) {
    changed(Aspect::value);
  }
}

Accessible TextField::ownAccessible() const {
  return {.role = AccessibleRole::textField, .value = shownText(), .actions = {AccessibleAction::setValue}};
}

}  // namespace tarnwell::kit
