#include "standin/dock/ui/DockWidget.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QWheelEvent>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

#include "standin/dock/ui/look/Blur.h"

namespace tarnwell::standin {
namespace {

constexpr double secondsToGrow = 0.12;

std::vector<SlotKind> kindsOf(const std::vector<DockItem>& items) {
  std::vector<SlotKind> kinds;
  kinds.reserve(items.size());
  for (const DockItem& item : items) {
    kinds.push_back(item.kind == DockItem::Kind::separator ? SlotKind::separator : SlotKind::icon);
  }
  return kinds;
}

}  // namespace

DockTile::DockTile(QWidget& dock, std::size_t item) : QAbstractButton(&dock), item_(item) {
  setMouseTracking(true);
  setFocusPolicy(Qt::NoFocus);
}

// The dock hears of it as well, and grows where the pointer is.
void DockTile::mouseMoveEvent(QMouseEvent* event) {
  QAbstractButton::mouseMoveEvent(event);
  event->ignore();
}

DockWidget::DockWidget(Surface& surface, const Reveal& reveal, ScrollGesture& scrolling, Actions actions)
    : surface_(surface), painter_(look_), actions_(std::move(actions)), reveal_(reveal), scrolling_(scrolling) {
  setWindowTitle(QStringLiteral("Dock"));
  setMouseTracking(true);
  alarm_.setTimerType(Qt::PreciseTimer);
  connect(&alarm_, &QTimer::timeout, this, [this] { wakeUp(); });
  surface_.adopt(*this, Surface::Role::dock);
  surface_.onEdge([this](bool isThere) { setPointer(onDock_, isThere); });
  surface_.onArea([this] { place(); });
}

void DockWidget::setItems(std::vector<DockItem> items) {
  items_ = std::move(items);
  while (tiles_.size() < items_.size()) {
    auto* const tile = new DockTile(*this, tiles_.size());
    connect(tile, &DockTile::clicked, this, [this, tile] { actions_.click(tile->item()); });
    tiles_.push_back(tile);
  }
  place();
  if (isBouncing(Reveal::Clock::now())) {
    wakeUp();
  }
}

void DockWidget::setScheme(Scheme scheme) {
  look_ = Look::of(scheme);
  update();
}

void DockWidget::hold() {
  if (++holders_ == 1) {
    reveal_.setHeld(true, Reveal::Clock::now());
    wakeUp();
  }
}

void DockWidget::release() {
  if (--holders_ == 0) {
    reveal_.setHeld(false, Reveal::Clock::now());
    wakeUp();
  }
}

void DockWidget::greet() { setPointer(onDock_, surface_.isAtEdge()); }

QRect DockWidget::iconPlace(std::size_t item) const {
  const QRect area = surface_.area();
  const auto place = layout_.placed({})[item];
  const double bottom = area.y() + area.height() - layout_.iconBottom();
  return QRectF(area.x() + place.center - place.size / 2, bottom - place.size, place.size, place.size).toRect();
}

// The widget is as wide as its surface, so that the layout's coordinates are its own.
void DockWidget::place() {
  const QRect area = surface_.area();
  layout_ = ShelfLayout(kindsOf(items_), area.width());
  const int high = std::min(ShelfPainter::heightFor(layout_), area.height());
  const QRect geometry(area.x(), area.y() + area.height() - high, area.width(), high);
  const bool wasVisible = isVisible();
  if (geometry != this->geometry()) {
    QWidget::hide();
    setGeometry(geometry);
    backdrop_ = QPixmap();
  }
  placeTiles();
  if (wasVisible) {
    show(shown_);
  }
}

// From the lower edge of the screen up to where an icon may reach; what is not painted is cut off by the mask.
void DockWidget::placeTiles() {
  const int high = static_cast<int>(std::ceil(layout_.grownTop()));
  for (std::size_t i = 0; i < tiles_.size(); ++i) {
    const bool isThere = i < items_.size() && items_[i].kind != DockItem::Kind::separator;
    tiles_[i]->setVisible(isThere);
    if (isThere) {
      const auto [left, right] = layout_.slot(i);
      tiles_[i]->setAccessibleName(items_[i].label);
      tiles_[i]->setGeometry(QRectF(left, height() - high, right - left, high).toRect());
    }
  }
}

void DockWidget::setPointer(bool onDock, bool atEdge) {
  onDock_ = onDock;
  atEdge_ = atEdge;
  const PointerPlace edge = atEdge_ ? PointerPlace::atEdge : PointerPlace::elsewhere;
  reveal_.setPointer(onDock_ ? PointerPlace::onDock : edge, Reveal::Clock::now());
  wakeUp();
}

// Does what is due, and sees to it that it is called again where there is more to come.
void DockWidget::wakeUp() {
  constexpr std::chrono::milliseconds frameTime{16};
  lastFrame_ = isMoving_ ? lastFrame_ : Reveal::Clock::now();
  if (reveal_.isMoving(Reveal::Clock::now())) {
    // Takes a while the first time, in which the dock has come a bit further.
    lookBehind();
  }
  const Time now = Reveal::Clock::now();
  growTowards(now);
  show(reveal_.shown(now));
  const bool grows = strength_ != (onDock_ ? 1 : 0);
  const bool moves = grows || reveal_.isMoving(now) || (shown_ > 0 && isBouncing(now));
  if (const bool wasMoving = std::exchange(isMoving_, moves); moves) {
    // Goes on by itself, and keeps the pace.
    if (!wasMoving) {
      alarm_.start(frameTime);
    }
  } else if (const auto deadline = reveal_.deadline()) {
    alarm_.start(std::chrono::ceil<std::chrono::milliseconds>(*deadline - now));
  } else {
    alarm_.stop();
  }
}

bool DockWidget::isBouncing(Time now) const {
  return std::ranges::any_of(items_, [&](const DockItem& item) { return item.bounce.isMoving(now); });
}

void DockWidget::growTowards(Time now) {
  const double step = Reveal::Seconds(now - std::exchange(lastFrame_, now)).count() / secondsToGrow;
  strength_ = std::clamp(strength_ + (onDock_ ? step : -step), 0.0, 1.0);
}

void DockWidget::show(double share) {
  constexpr int gap = 6;
  shown_ = share;
  if (share <= 0) {
    QWidget::hide();
    strength_ = 0;
    backdrop_ = QPixmap();
    surface_.setEdgeHeight(1);
    return;
  }
  lookBehind();
  const QRegion outline = ShelfPainter::outline(currentFrame()).intersected(rect());
  // To the toolkit an empty mask is none at all. A pixel of what is behind lets it paint from the first frame on; of a
  // window that does not show it would wait for word from the server.
  const QRegion mask = outline.isEmpty() ? QRegion(0, height() - 1, 1, 1) : outline;
  if (std::exchange(outline_, mask) != mask) {
    setMask(mask);
  }
  if (!isVisible()) {
    QWidget::show();
    surface_.raiseDock();
  }
  // The gap below the shelf belongs to the dock, once it is there.
  surface_.setEdgeHeight(share >= 1 ? gap : 1);
  repaint();
}

void DockWidget::lookBehind() {
  if (!backdrop_.isNull() || isVisible()) {
    return;
  }
  backdrop_ = surface_.picture(geometry());
  if (!surface_.blends()) {
    blurred_ = blurred(backdrop_);
  }
}

QPixmap DockWidget::pictureWithout() const {
  QPixmap picture = surface_.picture(surface_.area());
  if (isVisible() && !backdrop_.isNull()) {
    QPainter(&picture).drawPixmap(geometry().topLeft() - surface_.area().topLeft(), backdrop_);
  }
  return picture;
}

void DockWidget::cover(const QPixmap& cover) {
  if (surface_.blends()) {
    return;
  }
  uncovered_ = backdrop_;
  backdrop_ = cover;
  blurred_ = blurred(cover);
  update();
}

void DockWidget::uncover() {
  if (!uncovered_.isNull()) {
    backdrop_ = std::exchange(uncovered_, {});
    blurred_ = blurred(backdrop_);
    update();
  }
}

ShelfPainter::Frame DockWidget::currentFrame() const {
  const ShelfLayout::Attention attention{.pointer = pointer_, .strength = strength_};
  // Whole pixels, of which the first can be seen as soon as the dock comes.
  const double high = layout_.shelfTop() * devicePixelRatioF();
  const double sunk = std::min(std::round((1 - shown_) * high), std::floor(high) - 1);
  const bool isLabelled = onDock_ && shown_ >= 1 && strength_ > 0;
  return {.items = items_,
          .layout = layout_,
          .attention = attention,
          .labelled = isLabelled ? layout_.slotAt(pointer_) : std::nullopt,
          .canvas = size(),
          .sunk = sunk / devicePixelRatioF(),
          .now = lastFrame_};
}

void DockWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const bool isOpaque = !surface_.blends() && !backdrop_.isNull();
  if (isOpaque) {
    painter.drawPixmap(0, 0, backdrop_);
  }
  painter_.paint(painter, currentFrame(), isOpaque ? blurred_ : QPixmap());
}

void DockWidget::enterEvent(QEnterEvent* event) {
  pointer_ = event->position().x();
  setPointer(true, atEdge_);
}

void DockWidget::leaveEvent(QEvent* /*event*/) { setPointer(false, atEdge_); }

void DockWidget::mouseMoveEvent(QMouseEvent* event) {
  pointer_ = event->position().x();
  wakeUp();
}

std::optional<std::size_t> DockWidget::itemAt(QPointF place) const {
  const auto* const tile = dynamic_cast<const DockTile*>(childAt(place.toPoint()));
  return tile == nullptr ? std::nullopt : std::optional(tile->item());
}

// A tile hears of the left button, and leaves the others to the dock.
void DockWidget::mousePressEvent(QMouseEvent* event) { pressed_ = itemAt(event->position()); }

// Who has pressed an item and moved away from it has thought better of it.
void DockWidget::mouseReleaseEvent(QMouseEvent* event) {
  const auto pressed = std::exchange(pressed_, std::nullopt);
  if (pressed && itemAt(event->position()) == pressed && event->button() == Qt::RightButton) {
    actions_.menu(*pressed);
  }
}

void DockWidget::wheelEvent(QWheelEvent* event) {
  const bool acts = scrolling_.step(event->angleDelta().y(), event->timestamp());
  const auto slot = itemAt(event->position());
  if (slot && acts) {
    actions_.scrollUp(*slot);
  }
}

}  // namespace tarnwell::standin
