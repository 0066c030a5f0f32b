#include "standin/dock/face/WindowSurface.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QLinearGradient>
#include <QtGui/QPainter>
#include <algorithm>
#include <utility>

namespace tarnwell::standin {
namespace {

// A window has no edge that stops the pointer: one point is too easily passed by.
constexpr int leastEdge = 3;

}  // namespace

class WindowSurface::EdgeStrip : public QWidget {
 public:
  EdgeStrip(QWidget& parent, std::function<void(bool)> changed) : QWidget(&parent), changed_(std::move(changed)) {}

 private:
  void enterEvent(QEnterEvent* /*event*/) override { changed_(true); }
  void leaveEvent(QEvent* /*event*/) override { changed_(false); }

  std::function<void(bool)> changed_;
};

WindowSurface::WindowSurface()
    : floor_(new QWidget(this)), edge_(new EdgeStrip(*this, [this](bool isThere) { tellEdge(isThere); })) {
  constexpr QSize size(1000, 640);
  constexpr QSize least(480, 360);
  setWindowTitle(QStringLiteral("Dock"));
  setAttribute(Qt::WA_ShowWithoutActivating);
  setMinimumSize(least);
  resize(size);
  placeParts();
  QWidget::show();
}

WindowSurface::~WindowSurface() = default;

void WindowSurface::adopt(QWidget& widget, Role role) {
  widget.setParent(role == Role::dock || role == Role::effect ? this : floor_);
  edge_->raise();
}

QPixmap WindowSurface::picture(const QRect& part) const { return const_cast<WindowSurface*>(this)->grab(part); }

void WindowSurface::setEdgeHeight(int points) {
  edgeHeight_ = points;
  placeParts();
}

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
  placeParts();
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

void WindowSurface::placeParts() {
  floor_->setGeometry(rect());
  const int high = std::max(edgeHeight_, leastEdge);
  edge_->setGeometry(0, height() - high, width(), high);
}

}  // namespace tarnwell::standin
