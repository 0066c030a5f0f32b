#include "standin/dock/ui/DocumentWindow.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QShortcut>
#include <QtWidgets/QAbstractButton>
#include <utility>

#include "standin/dock/ui/look/DocumentPainter.h"
#include "standin/dock/ui/look/Panel.h"

namespace tarnwell::standin {
namespace {

constexpr QSize windowSize(360, 260);
constexpr int titleHeight = 36;
constexpr int buttonSize = 20;
constexpr int buttonMargin = (titleHeight - buttonSize) / 2;
constexpr double documentRadius = 10;

/// A button of a title bar, with strokes around its middle.
class TitleButton final : public QAbstractButton {
 public:
  TitleButton(QWidget& window, const Look& look, const QString& name, const QPainterPath& strokes)
      : QAbstractButton(&window), look_(look), strokes_(strokes) {
    setAccessibleName(name);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::NoFocus);
  }

 private:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(underMouse() ? look_.buttonHovered : look_.button);
    painter.drawRoundedRect(rect(), 6, 6);
    painter.strokePath(strokes_.translated(QRectF(rect()).center()), QPen(look_.ink, 1.6, Qt::SolidLine, Qt::RoundCap));
  }

  const Look& look_;
  QPainterPath strokes_;
};

QPainterPath minimizeStrokes() {
  QPainterPath path({-4, 3});
  path.lineTo(4, 3);
  return path;
}

QPainterPath closeStrokes() {
  QPainterPath path({-4, -4});
  path.lineTo(4, 4);
  path.moveTo(4, -4);
  path.lineTo(-4, 4);
  return path;
}

}  // namespace

DocumentWindow::DocumentWindow(Surface& surface, Content content, Actions actions)
    : content_(std::move(content)), actions_(std::move(actions)) {
  surface.adopt(*this, Surface::Role::document);
  setWindowTitle(content_.title);
  setFocusPolicy(Qt::ClickFocus);
  setFixedSize(windowSize);
  if (!surface.blends()) {
    setMask(panelRegion(QRectF(rect()), documentRadius));
  }
  const auto addButton = [this](const char* name, const QPainterPath& strokes, int number, const auto& action) {
    auto* const button = new TitleButton(*this, look_, QString::fromUtf8(name), strokes);
    button->setGeometry(width() - number * (buttonMargin + buttonSize), buttonMargin, buttonSize, buttonSize);
    connect(button, &QAbstractButton::clicked, this, action);
  };
  addButton("Close", closeStrokes(), 1, [this] { actions_.close(); });
  addButton("Minimize", minimizeStrokes(), 2, [this] { actions_.minimize(); });
  new QShortcut(
      Qt::CTRL | Qt::Key_M, this, [this] { actions_.minimize(); }, Qt::WidgetShortcut);
  new QShortcut(
      Qt::CTRL | Qt::Key_W, this, [this] { actions_.close(); }, Qt::WidgetShortcut);
  new QShortcut(
      Qt::CTRL | Qt::Key_H, this, [this] { actions_.hide(); }, Qt::WidgetShortcut);
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

void DocumentWindow::mousePressEvent(QMouseEvent* event) {
  raise();
  if (event->button() == Qt::LeftButton && event->pos().y() < titleHeight) {
    grip_ = event->globalPosition().toPoint() - pos();
  }
}

void DocumentWindow::mouseMoveEvent(QMouseEvent* event) {
  if (grip_) {
    move(event->globalPosition().toPoint() - *grip_);
  }
}

void DocumentWindow::mouseReleaseEvent(QMouseEvent* event) {
  if (grip_ && event->button() == Qt::LeftButton) {
    grip_.reset();
    actions_.moved();
  }
}

void DocumentWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  actions_.close();
}

}  // namespace tarnwell::standin
