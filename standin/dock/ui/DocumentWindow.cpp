#include "standin/dock/ui/DocumentWindow.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include "standin/dock/ui/DocumentPainter.h"

namespace tarnwell::standin {
namespace {

constexpr QSize windowSize(360, 260);
constexpr int titleHeight = 36;
constexpr int buttonSize = 20;
constexpr double documentRadius = 10;

}  // namespace

DocumentWindow::DocumentWindow(Surface& surface, Content content, Actions actions)
    : content_(std::move(content)), actions_(std::move(actions)) {
  surface.adopt(*this, Surface::Role::document);
  setWindowTitle(content_.title);
  setMouseTracking(true);
  setFocusPolicy(Qt::ClickFocus);
  setFixedSize(windowSize);
  if (!surface.blends()) {
    QPainterPath path;
    path.addRoundedRect(QRectF(rect()), documentRadius, documentRadius);
    setMask(QRegion(path.toFillPolygon().toPolygon()));
  }
}

void DocumentWindow::setScheme(Scheme scheme) {
  look_ = Look::of(scheme);
  update();
}

void DocumentWindow::activate() {
  raise();
  activateWindow();
  setFocus();
}

// Painted afresh, since a picture that is taken from the screen would have opaque corners.
QPixmap DocumentWindow::picture() {
  QPixmap pixmap(size() * devicePixelRatioF());
  pixmap.setDevicePixelRatio(devicePixelRatioF());
  pixmap.fill(Qt::transparent);
  isPictured_ = true;
  render(&pixmap, QPoint(), QRegion(), QWidget::DrawChildren | QWidget::IgnoreMask);
  isPictured_ = false;
  return pixmap;
}

void DocumentWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (!mask().isEmpty() && !isPictured_) {
    // The mask is cut on whole points, the outline is not: what is between them belongs to the rim.
    painter.fillRect(rect(), look_.windowRim);
  }
  QPainterPath outline;
  outline.addRoundedRect(QRectF(rect()), documentRadius, documentRadius);
  painter.fillPath(outline, look_.paper);
  painter.setClipPath(outline);
  painter.fillRect(0, 0, width(), titleHeight, look_.titleBar);
  painter.setClipping(false);
  QFont font = this->font();
  font.setPixelSize(13);
  font.setWeight(QFont::DemiBold);
  painter.setFont(font);
  painter.setPen(look_.ink);
  painter.drawText(QRect(0, 0, width(), titleHeight), Qt::AlignCenter, windowTitle());
  paintButton(painter, Part::closeButton);
  paintButton(painter, Part::minimizeButton);
  constexpr int margin = 20;
  paintDocument(painter, QRectF(rect()).adjusted(margin, titleHeight + margin, -margin, -margin), content_.application,
                content_.variant, look_);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(look_.windowRim, 1));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), documentRadius - 0.5, documentRadius - 0.5);
  if (painted_ && isVisible()) {
    std::exchange(painted_, {})();
  }
}

void DocumentWindow::paintButton(QPainter& painter, Part part) const {
  const QRectF place = buttonPlace(part);
  painter.setPen(Qt::NoPen);
  painter.setBrush(hovered_ == part ? look_.buttonHovered : look_.button);
  painter.drawRoundedRect(place, 6, 6);
  painter.setPen(QPen(look_.ink, 1.6, Qt::SolidLine, Qt::RoundCap));
  const QPointF center = place.center();
  constexpr double arm = 4;
  if (part == Part::minimizeButton) {
    painter.drawLine(center + QPointF(-arm, 3), center + QPointF(arm, 3));
  } else {
    painter.drawLine(center + QPointF(-arm, -arm), center + QPointF(arm, arm));
    painter.drawLine(center + QPointF(arm, -arm), center + QPointF(-arm, arm));
  }
}

QRect DocumentWindow::buttonPlace(Part part) {
  constexpr int margin = (titleHeight - buttonSize) / 2;
  const int number = part == Part::closeButton ? 1 : 2;
  return {windowSize.width() - number * (margin + buttonSize), margin, buttonSize, buttonSize};
}

DocumentWindow::Part DocumentWindow::partAt(QPoint place) {
  for (const Part button : {Part::closeButton, Part::minimizeButton}) {
    if (buttonPlace(button).contains(place)) {
      return button;
    }
  }
  return place.y() < titleHeight ? Part::titleBar : Part::page;
}

void DocumentWindow::mousePressEvent(QMouseEvent* event) {
  raise();
  if (event->button() != Qt::LeftButton) {
    return;
  }
  pressed_ = partAt(event->pos());
  grip_ = event->globalPosition().toPoint() - pos();
}

void DocumentWindow::mouseMoveEvent(QMouseEvent* event) {
  if (pressed_ == Part::titleBar) {
    move(event->globalPosition().toPoint() - grip_);
  } else if (const Part part = partAt(event->pos()); hovered_ != part) {
    hovered_ = part;
    update(0, 0, width(), titleHeight);
  }
}

void DocumentWindow::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) {
    return;
  }
  const std::optional<Part> pressed = std::exchange(pressed_, std::nullopt);
  if (pressed == Part::titleBar) {
    actions_.moved();
  } else if (pressed != partAt(event->pos())) {
    return;
  } else if (pressed == Part::minimizeButton) {
    actions_.minimize(event->modifiers().testFlag(Qt::ShiftModifier) ? Pace::slow : Pace::usual);
  } else if (pressed == Part::closeButton) {
    actions_.close();
  }
}

void DocumentWindow::leaveEvent(QEvent* /*event*/) {
  hovered_.reset();
  update(0, 0, width(), titleHeight);
}

void DocumentWindow::keyPressEvent(QKeyEvent* event) {
  if (event->modifiers() != Qt::ControlModifier) {
    return QWidget::keyPressEvent(event);
  }
  switch (event->key()) {
    case Qt::Key_M:
      return actions_.minimize(Pace::usual);
    case Qt::Key_W:
      return actions_.close();
    case Qt::Key_H:
      return actions_.hide();
    default:
      return QWidget::keyPressEvent(event);
  }
}

void DocumentWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  actions_.close();
}

}  // namespace tarnwell::standin
