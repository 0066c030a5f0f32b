#include "standin/dock/ui/SpreadOverlay.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QWheelEvent>
#include <algorithm>
#include <utility>

#include "standin/dock/model/SpreadLayout.h"
#include "standin/dock/ui/look/Blur.h"
#include "standin/dock/ui/look/Conversions.h"

namespace tarnwell::standin {
namespace {

constexpr int millisecondsToSpread = 240;
constexpr int titleRoom = 34;

// What was on the screen, out of focus and darker, so that the windows that stand there do not show twice.
QPixmap dimmed(const QPixmap& picture) {
  QPixmap result = blurred(picture);
  QPainter painter(&result);
  painter.fillRect(result.rect(), QColor(12, 14, 20, 120));
  return result;
}

}  // namespace

SpreadOverlay::SpreadOverlay(Surface& surface, ScrollGesture& scrolling) : surface_(surface), scrolling_(scrolling) {
  setWindowTitle(QStringLiteral("Windows"));
  setMouseTracking(true);
  surface_.adopt(*this, Surface::Role::overlay);
  spreading_.setStartValue(0.0);
  spreading_.setEndValue(1.0);
  spreading_.setDuration(millisecondsToSpread);
  connect(&spreading_, &QVariantAnimation::valueChanged, this, [this] { repaint(); });
  connect(&spreading_, &QVariantAnimation::finished, this, [this] {
    if (!isOpen()) {
      finish();
    }
  });
  surface_.onEscape([this] { close(); });
  surface_.onArea([this] {
    if (isVisible()) {
      arrange();
    }
  });
}

void SpreadOverlay::open(std::vector<Window> windows, const QPixmap& behind,
                         std::function<void(std::optional<std::size_t>)> chosen) {
  tellChoice();
  windows_ = std::move(windows);
  chosen_ = std::move(chosen);
  choice_.reset();
  hovered_.reset();
  arrange();
  behind_ = behind;
  backdrop_ = dimmed(behind);
  // They go on from where they are.
  spreading_.setDirection(QVariantAnimation::Forward);
  spreading_.start();
  show();
  raise();
  surface_.raiseDock();
  surface_.watchEscape(true);
}

void SpreadOverlay::arrange() {
  constexpr int roomForDock = 110;
  setGeometry(surface_.area());
  std::vector<Rectangle> places;
  for (const Window& window : windows_) {
    places.push_back(rectangleOf(window.place));
    places.back().height += titleRoom;
  }
  spread_ = spreadOut(places, rectangleOf(geometry().adjusted(0, 0, 0, -roomForDock)));
}

void SpreadOverlay::close() {
  if (isOpen()) {
    surface_.watchEscape(false);
    spreading_.setDirection(QVariantAnimation::Backward);
    spreading_.start();
  }
}

QPixmap SpreadOverlay::backdrop(const QRect& part) const {
  const double ratio = backdrop_.devicePixelRatio();
  const QRectF place(part.translated(-pos()));
  return backdrop_.copy(QRectF(place.topLeft() * ratio, place.size() * ratio).toAlignedRect());
}

void SpreadOverlay::finish() {
  hide();
  windows_.clear();
  behind_ = QPixmap();
  backdrop_ = QPixmap();
  tellChoice();
}

void SpreadOverlay::tellChoice() {
  if (const auto chosen = std::exchange(chosen_, {})) {
    chosen(choice_);
  }
}

QRectF SpreadOverlay::placeOf(std::size_t window) const {
  const QRect& stands = windows_[window].place;
  const Rectangle& spread = spread_[window];
  const double scale = spread.height / (stands.height() + titleRoom);
  const double share = this->share();
  return {mixed(stands.x(), spread.x, share) - x(), mixed(stands.y(), spread.y, share) - y(),
          mixed(stands.width(), spread.width, share), mixed(stands.height(), stands.height() * scale, share)};
}

std::optional<std::size_t> SpreadOverlay::windowAt(QPointF place) const {
  for (std::size_t i = 0; i < windows_.size(); ++i) {
    if (placeOf(i).contains(place)) {
      return i;
    }
  }
  return std::nullopt;
}

void SpreadOverlay::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.drawPixmap(rect(), backdrop_);
  for (std::size_t i = 0; i < windows_.size(); ++i) {
    paintWindow(painter, i);
  }
}

void SpreadOverlay::paintWindow(QPainter& painter, std::size_t window) const {
  const QRectF place = placeOf(window);
  const QPixmap& picture = windows_[window].picture;
  painter.drawPixmap(place, picture, QRectF(picture.rect()));
  if (hovered_ == window) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0x4d92ff), 4));
    painter.drawRoundedRect(place.adjusted(-4, -4, 4, 4), 13, 13);
  }
  QFont font = this->font();
  font.setPixelSize(14);
  font.setWeight(QFont::Medium);
  painter.setFont(font);
  painter.setPen(Qt::white);
  painter.setOpacity(share());
  painter.drawText(QRectF(place.x(), place.bottom() + 8, place.width(), titleRoom - 8), Qt::AlignCenter,
                   windows_[window].title);
  painter.setOpacity(1);
}

void SpreadOverlay::mouseMoveEvent(QMouseEvent* event) {
  if (const auto window = windowAt(event->position()); std::exchange(hovered_, window) != window) {
    update();
  }
}

void SpreadOverlay::mousePressEvent(QMouseEvent* event) { isPressed_ = event->button() == Qt::LeftButton; }

void SpreadOverlay::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !std::exchange(isPressed_, false)) {
    return;
  }
  choice_ = windowAt(event->position());
  close();
}

// The dock may have hidden meanwhile; scrolling again is meant for it all the same.
void SpreadOverlay::wheelEvent(QWheelEvent* event) {
  if (scrolling_.step(event->angleDelta().y(), event->timestamp())) {
    close();
  }
}

}  // namespace tarnwell::standin
