#include "host/qt/WindowWidget.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QKeyEvent>

#include "host/qt/Conversions.h"
#include "host/qt/KeyRoute.h"
#include "kit/ScrollArea.h"
#include "kit/Window.h"

namespace tarnwell::host_qt {
namespace {

constexpr Qt::WindowFlags fixedSizeWindow = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                            Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                                            Qt::WindowCloseButtonHint;
// Of the visible height: what stood at the edge is still seen after a page.
constexpr double pageShare = 0.9;

}  // namespace

WindowWidget::WindowWidget(kit::Window& window, KeyRoute& keys)
    : QWidget(nullptr, fixedSizeWindow), window_(&window), keys_(keys) {
  // Nothing in the window has the focus until the user goes there, and a press on the ground takes it back.
  setFocusPolicy(Qt::ClickFocus);
  setFocus(Qt::OtherFocusReason);
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
  if (!keys_.deliver(key, *window_) && window_ != nullptr && !scroll(event->key())) {
    event->ignore();
  }
}

bool WindowWidget::scroll(int key) {
  kit::ScrollArea* area = scrollArea();
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

kit::ScrollArea* WindowWidget::scrollArea() const {
  for (kit::Control* control : window_->controls()) {
    if (auto* area = dynamic_cast<kit::ScrollArea*>(control)) {
      return area;
    }
  }
  return nullptr;
}

}  // namespace tarnwell::host_qt
