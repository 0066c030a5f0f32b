#include "standin/dock/ui/surface/WindowSurface.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QLinearGradient>
#include <QtGui/QPainter>
#include <QtGui/QWindow>

namespace tarnwell::standin {

WindowSurface::WindowSurface() : floor_(new QWidget(this)) {
  constexpr QSize size(1000, 640);
  constexpr QSize least(480, 360);
  setWindowTitle(QStringLiteral("Dock"));
  setAttribute(Qt::WA_ShowWithoutActivating);
  setMinimumSize(least);
  resize(size);
  QWidget::show();
  // Hears of the pointer wherever in the window it is.
  windowHandle()->installEventFilter(this);
}

void WindowSurface::adopt(QWidget& widget, Role role) {
  if (role == Role::menu) {
    widget.setAttribute(Qt::WA_TranslucentBackground);
    return widget.setParent(this, widget.windowFlags());
  }
  widget.setParent(role == Role::dock || role == Role::effect ? this : floor_);
}

QPixmap WindowSurface::picture(const QRect& part) const { return const_cast<WindowSurface*>(this)->grab(part); }

void WindowSurface::setScheme(Scheme scheme) {
  look_ = Look::of(scheme);
  update();
}

void WindowSurface::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QLinearGradient desktop(0, 0, 0, height());
  desktop.setColorAt(0, look_.desktopTop);
  desktop.setColorAt(1, look_.desktopBottom);
  painter.fillRect(rect(), desktop);
  constexpr int margin = 20;
  painter.setPen(look_.ink);
  painter.drawText(rect().adjusted(margin, margin, -margin, -margin),
                   Qt::AlignTop | Qt::AlignHCenter | Qt::TextWordWrap,
                   QStringLiteral("This desktop places windows itself, so the Dock has a window of its own. Move the "
                                  "pointer to its lower edge."));
}

void WindowSurface::resizeEvent(QResizeEvent* /*event*/) {
  floor_->setGeometry(rect());
  tellArea();
}

void WindowSurface::keyPressEvent(QKeyEvent* event) {
  if (isEscapeWatched_ && event->key() == Qt::Key_Escape) {
    tellEscape();
  } else {
    QWidget::keyPressEvent(event);
  }
}

// A dock is never closed, and nothing would bring it back.
void WindowSurface::closeEvent(QCloseEvent* event) {
  event->ignore();
  showMinimized();
}

bool WindowSurface::eventFilter(QObject* /*watched*/, QEvent* event) {
  const auto placeOf = [](QPointF place) { return Point{place.x(), place.y()}; };
  if (event->type() == QEvent::Enter) {
    edge_.enter(placeOf(static_cast<QEnterEvent*>(event)->position()), extent());
  } else if (event->type() == QEvent::MouseMove && QGuiApplication::mouseButtons() == Qt::NoButton) {
    edge_.move(placeOf(static_cast<QMouseEvent*>(event)->position()), extent());
  } else if (event->type() == QEvent::Leave) {
    edge_.leave();
  }
  if (edge_.isReached() != isAtEdge()) {
    tellEdge(edge_.isReached());
  }
  return false;
}

Size WindowSurface::extent() const { return {.width = 1.0 * width(), .height = 1.0 * height()}; }

}  // namespace tarnwell::standin
