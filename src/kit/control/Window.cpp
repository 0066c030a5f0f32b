#include "kit/control/Window.h"

#include <algorithm>
#include <utility>

#include "diagnostics/Fault.h"
#include "kit/control/Control.h"
#include "kit/turn/Turn.h"

namespace tarnwell::kit {

namespace {

bool isEnabledButton(const Accessible& told) { return told.role == AccessibleRole::button && told.isEnabled; }

}  // namespace

Window::Window(std::string identifier, std::string title, Kind kind)
    : identifier_(std::move(identifier)), title_(std::move(title)), kind_(kind) {
  respondTo(selectors::performClose, [this](Object* /*sender*/) { performClose(); });
  if (kind_ == Kind::standard) {
    respondTo(selectors::performMiniaturize, [this](Object* /*sender*/) {
      if (peer_) {
        peer_->miniaturize();
      }
    });
  }
}

Window::~Window() { *handle_ = nullptr; }

void Window::setContentSize(Size size) {
  if (std::exchange(contentSize_, size) != size && peer_) {
    peer_->place({.width = size.width, .height = size.height});
  }
}

void Window::setVisible(bool visible) {
  if (std::exchange(visible_, visible) != visible && peer_) {
    peer_->show(Aspect::visible);
    if (visible_) {
      focusInitialControl();
    }
  }
}

void Window::setAccessibleDescription(std::string description) {
  if (description != accessibleDescription_) {
    accessibleDescription_ = std::move(description);
    if (peer_) {
      peer_->show(Aspect::accessibleDescription);
    }
  }
}

void Window::attach(std::unique_ptr<WindowPeer> peer) {
  peer_ = std::move(peer);
  if (peer_) {
    peer_->show(Aspect::title);
    peer_->place({.width = contentSize_.width, .height = contentSize_.height});
    peer_->show(Aspect::visible);
    peer_->reorder(controls_);
  }
}

void Window::setLevel(int level) {
  if (std::exchange(level_, level) != level && peer_) {
    peer_->show(Aspect::level);
  }
}

void Window::setControls(std::vector<Control*> inTreeOrder) {
  if (inTreeOrder != controls_) {
    for (Control* control : controls_) {
      control->setWindow(nullptr);
    }
    controls_ = std::move(inTreeOrder);
    for (Control* control : controls_) {
      control->setWindow(this);
    }
    if (std::find(controls_.begin(), controls_.end(), focused_) == controls_.end()) {
      focused_ = nullptr;
    }
    if (peer_) {
      peer_->reorder(controls_);
      focusNextPage();
    }
  }
}

void Window::metricsChanged() {
  if (const Action action = metricsAction_) {
    action();
  }
}

void Window::performClose() {
  const auto self = handle_;
  endEditing();
  if (*self == nullptr) {
    return;
  }
  if (const Action action = closeAction_) {
    action();
  }
}

void Window::endEditing(const Control* kept) {
  // A copy: a commit may change what stands here.
  for (Control* control : std::vector(controls_)) {
    if (control != kept && control->isEditing()) {
      control->commit();
      return;
    }
  }
}

bool Window::keyDown(const KeyEvent& event) {
  if (turn_ != nullptr && turn_->isPerforming()) {
    diagnostics::fault("a window was given a key in the middle of another event");
  }
  if (event.charactersIgnoringModifiers == escapeKey && event.modifierFlags == 0) {
    return cancelEditing() || closePanel();
  }
  return event.charactersIgnoringModifiers == returnKey && event.modifierFlags == 0 && commitAndPressButton();
}

bool Window::respondsToSelector(const Selector& selector) const {
  return editorFor(selector) != nullptr || Object::respondsToSelector(selector);
}

void Window::perform(const Selector& selector, Object* sender) {
  if (Peer* editor = editorFor(selector)) {
    editor->edit(selector);
  } else {
    Object::perform(selector, sender);
  }
}

Peer* Window::editorFor(const Selector& command) const {
  Peer* editor = focused_ != nullptr ? focused_->peer() : nullptr;
  return editor != nullptr && editor->canEdit(command) ? editor : nullptr;
}

bool Window::commitAndPressButton() {
  const auto self = handle_;
  endEditing();
  if (*self == nullptr) {
    return true;
  }
  Control* button = buttonForReturn();
  if (button != nullptr) {
    kit::perform(*button, {.action = AccessibleAction::press});
  }
  return button != nullptr;
}

Control* Window::buttonForReturn() const {
  const bool pressesFocused = kind_ == Kind::panel && focused_ != nullptr && isEnabledButton(focused_->accessible());
  return pressesFocused ? focused_ : defaultButton();
}

Control* Window::defaultButton() const {
  const auto found = std::ranges::find_if(controls_, [](const Control* control) {
    const Accessible told = control->accessible();
    return told.isDefault && isEnabledButton(told);
  });
  return found != controls_.end() ? *found : nullptr;
}

Control* Window::initialControl() const { return kind_ == Kind::panel && takesKeyboard_ ? defaultButton() : nullptr; }

void Window::focusInitialControl() {
  Control* initial = initialControl();
  initial_ = initial != nullptr ? initial->handle() : nullptr;
  peer_->focus(initial);
}

// Of a panel that stays where it is.
void Window::focusNextPage() {
  const Control* initial = initialControl();
  if (visible_ && initial != nullptr && initial->handle() != initial_) {
    focusInitialControl();
  }
}

bool Window::closePanel() {
  if (kind_ != Kind::panel) {
    return false;
  }
  performClose();
  return true;
}

bool Window::cancelEditing() {
  for (Control* control : controls_) {
    if (control->isEditing()) {
      control->cancel();
      return true;
    }
  }
  return false;
}

void afterCommit(Control& control, const Action& work) {
  const auto handle = control.handle();
  if (control.window() != nullptr) {
    control.window()->endEditing(&control);
  }
  if (*handle != nullptr) {
    work();
  }
}

void perform(Control& control, const AccessibleRequest& request) {
  afterCommit(control, [&] { control.carryOut(request); });
}

}  // namespace tarnwell::kit
