#include "host/qt/window/WindowPeer.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <algorithm>
#include <cmath>
#include <map>

#include "host/qt/control/WidgetPeer.h"
#include "host/qt/look/Conversions.h"
#include "host/qt/session/ActivationToken.h"
#include "kit/application/Application.h"
#include "kit/control/Control.h"
#include "kit/control/Window.h"

namespace tarnwell::host_qt {
namespace {

// A title bar, as long as the window manager has not told its height.
constexpr int usualFrame = 40;

std::vector<QWidget*> widgetsOf(const std::vector<kit::Control*>& controls) {
  std::vector<QWidget*> widgets;
  for (const kit::Control* control : controls) {
    if (QWidget* widget = WidgetPeer::widgetOf(*control)) {
      widgets.push_back(widget);
    }
  }
  return widgets;
}

// The order of the children is both what lies above what and the order in which a screen reader tells them.
void restack(const QWidget& parent, const std::vector<QWidget*>& wanted) {
  std::vector<QWidget*> present;
  for (QObject* child : parent.children()) {
    if (std::find(wanted.begin(), wanted.end(), child) != wanted.end()) {
      present.push_back(static_cast<QWidget*>(child));
    }
  }
  if (present != wanted) {
    std::for_each(wanted.begin(), wanted.end(), [](QWidget* widget) { widget->raise(); });
  }
}

void restackAll(const std::vector<QWidget*>& inTreeOrder) {
  std::map<QWidget*, std::vector<QWidget*>> byParent;
  for (QWidget* widget : inTreeOrder) {
    byParent[widget->parentWidget()].push_back(widget);
  }
  for (const auto& [parent, children] : byParent) {
    restack(*parent, children);
  }
}

// From the ground that they stand on, so that the first control is where the keyboard begins.
void chainFocus(QWidget& ground, const std::vector<QWidget*>& inTreeOrder) {
  QWidget* previous = &ground;
  for (QWidget* widget : inTreeOrder) {
    if (widget->focusPolicy() != Qt::NoFocus) {
      QWidget::setTabOrder(previous, widget);
      previous = widget;
    }
  }
}

int heightOf(const QPointer<QWidget>& chrome, int width) {
  if (!chrome || chrome->isHidden()) {
    return 0;
  }
  const int wrapped = chrome->heightForWidth(width);
  return wrapped >= 0 ? wrapped : chrome->sizeHint().height();
}

}  // namespace

WindowPeer::WindowPeer(kit::Window& window, const KeyEquivalents& equivalents)
    : window_(window), widget_(new WindowWidget(window, equivalents)), content_(widget_) {}

WindowPeer::~WindowPeer() {
  if (widget_) {
    widget_->cut();
    widget_->hide();
    widget_->deleteLater();
  }
}

kit::Window* WindowPeer::windowOf(const QWidget& widget) {
  const auto* window = dynamic_cast<const WindowWidget*>(widget.window());
  return window != nullptr ? window->kitWindow() : nullptr;
}

void WindowPeer::setChrome(const WindowChrome& chrome) {
  above_ = chrome.above;
  below_ = chrome.below;
  content_ = new QWidget(widget_);
  // A press on the ground takes the keyboard back, one on a menu bar does not.
  content_->setFocusPolicy(widget_->focusPolicy());
  widget_->setFocusPolicy(Qt::NoFocus);
  if (below_) {
    // The last that a screen reader tells.
    below_->raise();
  }
}

void WindowPeer::chromeChanged(const QWidget& inWindow) {
  kit::Window* window = windowOf(inWindow);
  if (window == nullptr || window->peer() == nullptr) {
    return;
  }
  // The content may well keep its size, and the window is then not placed again.
  const kit::Size size = window->contentSize();
  window->peer()->place({.width = size.width, .height = size.height});
  window->metricsChanged();
}

void WindowPeer::tellKeyWindow() {
  const QWindow* focused = QGuiApplication::focusWindow();
  const QWidget* widget = focused != nullptr ? QWidget::find(focused->winId()) : nullptr;
  kit::Window* window = widget != nullptr ? windowOf(*widget) : nullptr;
  if (window != nullptr && window->isVisible() && kit::Application::isThere()) {
    kit::Application::shared().windows().setKeyWindow(window);
  }
}

void WindowPeer::show(kit::Aspect aspect) noexcept {
  if (!widget_) {
    return;
  }
  if (aspect == kit::Aspect::title) {
    widget_->setWindowTitle(toQString(window_.title()));
  } else if (aspect == kit::Aspect::visible) {
    showOrHide();
  } else if (aspect == kit::Aspect::accessibleDescription) {
    widget_->setAccessibleDescription(toQString(window_.accessibleDescription()));
  } else if (aspect == kit::Aspect::level) {
    showLevel();
  }
}

void WindowPeer::showOrHide() {
  widget_->setAttribute(Qt::WA_ShowWithoutActivating, !window_.takesKeyboard());
  widget_->setVisible(window_.isVisible());
  if (window_.isVisible()) {
    orderFront();
    // To the toolkit a window that comes back at once may never have been without the keyboard.
    tellKeyWindow();
  }
}

void WindowPeer::showLevel() {
  const bool above = window_.level() > kit::Window::normalLevel;
  if (QWindow* shown = widget_->windowHandle()) {
    // The widget's own setter would take the window off the screen.
    shown->setFlag(Qt::WindowStaysOnTopHint, above);
  }
  widget_->overrideWindowFlags(widget_->windowFlags().setFlag(Qt::WindowStaysOnTopHint, above));
}

void WindowPeer::place(const kit::Rect& frame) noexcept {
  if (!widget_) {
    return;
  }
  const QSize size(static_cast<int>(std::ceil(frame.width)), static_cast<int>(std::ceil(frame.height)));
  const int above = heightOf(above_, size.width());
  const int below = heightOf(below_, size.width());
  // Where a desktop insists on it, the window has the desktop's size.
  if (!widget_->isMaximized()) {
    widget_->setFixedSize(size.width(), above + size.height() + below);
  }
  if (content_ != widget_) {
    content_->setGeometry(0, above, size.width(), size.height());
  }
  if (above_) {
    above_->setGeometry(0, 0, size.width(), above);
  }
  if (below_) {
    below_->setGeometry(0, above + size.height(), size.width(), below);
  }
}

double WindowPeer::availableHeight(double width) const {
  const QRect room = widget_->screen()->availableGeometry();
  const int frame = widget_->frameGeometry().height() - widget_->height();
  return room.height() - (frame > 0 ? frame : usualFrame) - chromeHeight(width);
}

double WindowPeer::chromeHeight(double width) const {
  const int whole = static_cast<int>(std::ceil(width));
  return widget_ ? heightOf(above_, whole) + heightOf(below_, whole) : 0;
}

void WindowPeer::miniaturize() noexcept {
  if (widget_) {
    widget_->showMinimized();
  }
}

void WindowPeer::orderFront() noexcept {
  if (!widget_) {
    return;
  }
  if (window_.takesKeyboard()) {
    bringToFront(*widget_);
  } else {
    widget_->setWindowState(widget_->windowState() & ~Qt::WindowMinimized);
    widget_->raise();
    widget_->uncoverOnce();
  }
}

void WindowPeer::focus(kit::Control* control) noexcept {
  if (QWidget* focused = control != nullptr ? WidgetPeer::widgetOf(*control) : widget_.data()) {
    focused->setFocus(Qt::OtherFocusReason);
  }
}

void WindowPeer::reorder(const std::vector<kit::Control*>& inTreeOrder) noexcept {
  if (widget_) {
    const std::vector<QWidget*> widgets = widgetsOf(inTreeOrder);
    restackAll(widgets);
    chainFocus(*content_, widgets);
  }
}

}  // namespace tarnwell::host_qt
