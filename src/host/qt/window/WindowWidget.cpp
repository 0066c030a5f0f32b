#include "host/qt/window/WindowWidget.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWindow>
#include <algorithm>
#include <optional>

#include "host/qt/control/WidgetPeer.h"
#include "host/qt/look/Conversions.h"
#include "host/qt/look/Keys.h"
#include "kit/control/Window.h"
#include "kit/controls/buttons/Toggle.h"
#include "kit/controls/choices/TabBar.h"
#include "kit/controls/containers/ScrollArea.h"

namespace tarnwell::host_qt {
namespace {

constexpr Qt::WindowFlags fixedSizeWindow = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                            Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                                            Qt::WindowCloseButtonHint;
constexpr Qt::WindowFlags panelWindow = (fixedSizeWindow & ~Qt::WindowFlags(Qt::WindowMinimizeButtonHint)) | Qt::Dialog;
// Of the visible height: what stood at the edge is still seen after a page.
constexpr double pageShare = 0.9;

// How many tabs to the right a key goes.
std::optional<int> tabDistance(const QKeyEvent& event) {
  // The page keys of the keypad are page keys.
  const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
  const bool control = modifiers.testFlag(Qt::ControlModifier);
  const bool onlyShift = (modifiers & ~Qt::KeyboardModifiers(Qt::ControlModifier | Qt::ShiftModifier)) == 0;
  if (!control || !onlyShift) {
    return std::nullopt;
  }
  switch (event.key()) {
    case Qt::Key_Tab:
      return event.modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1;
    case Qt::Key_Backtab:
    case Qt::Key_PageUp:
      return -1;
    case Qt::Key_PageDown:
      return 1;
    default:
      return std::nullopt;
  }
}

}  // namespace

WindowWidget::WindowWidget(kit::Window& window, const KeyEquivalents& equivalents)
    : QWidget(nullptr, window.kind() == kit::Window::Kind::panel ? panelWindow : fixedSizeWindow),
      window_(&window),
      equivalents_(equivalents) {
  // Nothing in the window has the focus until the user goes there, and a press on the ground takes it back.
  setFocusPolicy(Qt::ClickFocus);
  setFocus(Qt::OtherFocusReason);
}

void WindowWidget::uncoverOnce() {
  disconnect(covering_);
  covering_ = connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* focused) noexcept {
    if (focused != nullptr && isVisible()) {
      disconnect(covering_);
      if (focused != windowHandle()) {
        raise();
      }
    }
  });
}

bool WindowWidget::event(QEvent* event) noexcept {
  const bool heard = window_ != nullptr || event->type() == QEvent::DeferredDelete;
  return heard && QWidget::event(event);
}

void WindowWidget::closeEvent(QCloseEvent* event) {
  // Its owner closes it, or not.
  event->ignore();
  window_->performClose();
}

void WindowWidget::keyPressEvent(QKeyEvent* event) {
  const kit::KeyEvent key = toKeyEvent(*event);
  if (chooseTab(*event)) {
    return;
  }
  // A copy: what the key does may replace it.
  const KeyEquivalents equivalents = equivalents_;
  const bool wasEquivalent = equivalents && equivalents(key);
  if (!wasEquivalent && window_ != nullptr && !window_->keyDown(key) && !scroll(event->key())) {
    event->ignore();
  }
}

// Presses arrive here that no control has taken.
void WindowWidget::mousePressEvent(QMouseEvent* event) {
  pressed_ = event->button() == Qt::LeftButton ? toggleLabelledAt(event->position()) : nullptr;
  QWidget::mousePressEvent(event);
}

void WindowWidget::mouseReleaseEvent(QMouseEvent* event) {
  const auto pressed = std::exchange(pressed_, nullptr);
  if (event->button() == Qt::LeftButton && pressed && *pressed != nullptr &&
      toggleLabelledAt(event->position()) == pressed) {
    static_cast<kit::Toggle*>(*pressed)->press();
  }
}

std::shared_ptr<kit::Control* const> WindowWidget::toggleLabelledAt(const QPointF& position) const {
  for (kit::Control* control : window_->controls()) {
    const auto* toggle = dynamic_cast<const kit::Toggle*>(control);
    const QWidget* ground = toggle != nullptr ? WidgetPeer::widgetOf(*toggle)->parentWidget() : nullptr;
    const QPointF onGround = ground != nullptr ? ground->mapFrom(this, position) : QPointF();
    if (ground != nullptr && ground->visibleRegion().contains(onGround.toPoint()) &&
        toggle->labelFrame().contains(toPoint(onGround))) {
      return control->handle();
    }
  }
  return nullptr;
}

bool WindowWidget::chooseTab(const QKeyEvent& event) {
  const std::optional<int> distance = tabDistance(event);
  auto* bar = distance ? first<kit::TabBar>() : nullptr;
  if (bar == nullptr) {
    return false;
  }
  // What has the keyboard may go with its page. It commits what is being typed, which may end the bar.
  const auto handle = bar->handle();
  WidgetPeer::widgetOf(*bar)->setFocus(Qt::ShortcutFocusReason);
  if (*handle != nullptr) {
    bar->chooseBeside(*distance);
  }
  return true;
}

bool WindowWidget::scroll(int key) {
  auto* area = first<kit::ScrollArea>();
  if (area == nullptr) {
    return false;
  }
  const double step = area->bounds().height * pageShare;
  switch (key) {
    case Qt::Key_PageUp:
      area->scrollTo(area->offset() - step);
      return true;
    case Qt::Key_PageDown:
      area->scrollTo(area->offset() + step);
      return true;
    case Qt::Key_Home:
      area->scrollTo(0);
      return true;
    case Qt::Key_End:
      area->scrollTo(area->contentHeight());
      return true;
    default:
      return false;
  }
}

template <class Kind>
Kind* WindowWidget::first() const {
  for (kit::Control* control : window_->controls()) {
    if (auto* found = dynamic_cast<Kind*>(control)) {
      return found;
    }
  }
  return nullptr;
}

}  // namespace tarnwell::host_qt
