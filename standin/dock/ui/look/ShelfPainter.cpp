#include "standin/dock/ui/look/ShelfPainter.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QPicture>
#include <algorithm>
#include <array>
#include <cmath>

#include "standin/dock/ui/look/Panel.h"

namespace tarnwell::standin {
namespace {

constexpr double shelfRadius = 19;
constexpr double dotSize = 4;
constexpr double dotBottom = 4;  // above the shelf's lower edge
constexpr double labelHeight = 26;
constexpr double labelGap = 9;
constexpr double labelMargin = 11;
constexpr double labelRadius = 8;
constexpr double iconRoundness = 0.2;  // of the size
constexpr double dimming = 0.4;
constexpr double bounceHeight = 0.7;  // of the size at rest; one that has grown still finds room

QRectF shelfOf(const ShelfPainter::Frame& frame) {
  const auto ends = frame.layout.ends(frame.attention);
  return {ends.left, frame.canvas.height() - frame.layout.shelfTop() + frame.sunk, ends.right - ends.left,
          frame.layout.shelfTop() - frame.layout.shelfBottom()};
}

QRectF squareOf(const ShelfPainter::Frame& frame, const DockItem& item, const ShelfLayout::Placed& place) {
  const double lift = item.bounce.height(frame.now) * bounceHeight * frame.layout.iconSize();
  const double bottom = frame.canvas.height() - frame.layout.iconBottom() + frame.sunk - lift;
  return {place.center - place.size / 2, bottom - place.size, place.size, place.size};
}

QFont labelFont() {
  QFont font = QGuiApplication::font();
  font.setPixelSize(13);
  font.setWeight(QFont::Medium);
  return font;
}

std::optional<QRectF> labelOf(const ShelfPainter::Frame& frame) {
  // One that jumps wants the room of its label.
  if (!frame.labelled || frame.items[*frame.labelled].bounce.isMoving(frame.now)) {
    return std::nullopt;
  }
  const double center = frame.layout.placed(frame.attention)[*frame.labelled].center;
  const double width = std::ceil(QFontMetricsF(labelFont()).horizontalAdvance(frame.items[*frame.labelled].label));
  const double wide = width + 2 * labelMargin;
  constexpr double margin = 4;
  const double farthest = std::max(frame.canvas.width() - wide - margin, margin);
  const double left = std::clamp(center - wide / 2, margin, farthest);
  // Above what an icon that has fully grown reaches, so that it does not bob while the pointer moves.
  const double top = frame.canvas.height() - frame.layout.grownTop() - labelGap - labelHeight;
  return QRectF(std::round(left), std::round(top), wide, labelHeight);
}

// A few rectangles that cover a rounded one. Whatever is drawn is cut by them, so that every one more costs time.
QRegion roundedRegion(const QRectF& rectangle, double radius) {
  // How far from the upper and lower edges each starts, and how much narrower it may be; both shares of the radius.
  constexpr std::array<std::array<double, 2>, 3> steps = {{{0, 0.56}, {0.1, 0.24}, {0.35, 0}}};
  QRegion region;
  for (const auto& [fromEdge, inset] : steps) {
    const double across = inset * radius;
    const double down = fromEdge * radius;
    region += rectangle.adjusted(across, down, -across, -down).toAlignedRect();
  }
  return region;
}

}  // namespace

void ShelfPainter::paint(QPainter& painter, const Frame& frame, const QPixmap& behind) {
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  paintPanel(painter, shelfOf(frame), shelfRadius, look_.shelf, look_, behind);
  const auto places = frame.layout.placed(frame.attention);
  for (std::size_t i = 0; i < places.size(); ++i) {
    paintSlot(painter, frame, frame.items[i], places[i]);
  }
  paintLabel(painter, frame);
}

QRegion ShelfPainter::outline(const Frame& frame) {
  const QRectF shelf = shelfOf(frame);
  QRegion region = panelRegion(shelf, shelfRadius);
  const auto places = frame.layout.placed(frame.attention);
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (const QRectF square = squareOf(frame, frame.items[i], places[i]); square.top() < shelf.top()) {
      region += roundedRegion(square, places[i].size * iconRoundness);
    }
  }
  if (const auto label = labelOf(frame)) {
    region += panelRegion(*label, labelRadius);
  }
  return region;
}

int ShelfPainter::heightFor(const ShelfLayout& layout) {
  return static_cast<int>(std::ceil(layout.grownTop() + labelGap + labelHeight + 4));
}

void ShelfPainter::paintSlot(QPainter& painter, const Frame& frame, const DockItem& item,
                             const ShelfLayout::Placed& place) {
  const QRectF shelf = shelfOf(frame);
  painter.setPen(Qt::NoPen);
  if (item.kind == DockItem::Kind::separator) {
    constexpr double inset = 10;
    painter.fillRect(QRectF(std::round(place.center), shelf.top() + inset, 1, shelf.height() - 2 * inset),
                     look_.separator);
    return;
  }
  const QRectF square = squareOf(frame, item, place);
  if (item.kind == DockItem::Kind::window) {
    paintPicture(painter, item, square);
  } else {
    // What does not grow is drawn at its size, what does is made a little smaller from the largest size.
    const bool atRest = place.size <= frame.layout.iconSize();
    const double size = frame.layout.iconSize() * (atRest ? 1 : 1 + ShelfLayout::growth);
    const QPixmap& pixmap = icon(item.icon, size, painter.device()->devicePixelRatioF());
    painter.setOpacity(item.isDimmed ? dimming : 1);
    painter.drawPixmap(square, pixmap, QRectF(pixmap.rect()));
    painter.setOpacity(1);
  }
  if (item.isRunning) {
    painter.setBrush(look_.dot);
    painter.drawEllipse(QRectF(place.center - dotSize / 2, shelf.bottom() - dotBottom - dotSize, dotSize, dotSize));
  }
}

void ShelfPainter::paintPicture(QPainter& painter, const DockItem& item, const QRectF& square) {
  if (item.picture.isNull()) {
    return;
  }
  const QSizeF size = QSizeF(item.picture.size()).scaled(square.size() * 0.94, Qt::KeepAspectRatio);
  QRectF place(QPointF(), size);
  place.moveCenter(square.center());
  painter.drawPixmap(place, item.picture, QRectF(item.picture.rect()));
  const double badge = square.width() * 0.42;
  const QPixmap& small = icon(item.icon, badge, painter.device()->devicePixelRatioF());
  painter.drawPixmap(QRectF(square.right() - badge, square.bottom() - badge, badge, badge), small,
                     QRectF(small.rect()));
}

// Sharp on a screen of `ratio` pixels a point.
const QPixmap& ShelfPainter::icon(const std::string& name, double points, double ratio) {
  const int pixels = static_cast<int>(std::lround(points * ratio));
  QPixmap& pixmap = icons_[{name, pixels}];
  if (pixmap.isNull()) {
    pixmap = QPixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPicture drawing;
    if (drawing.load(QStringLiteral(":/dock/%1.picture").arg(QString::fromStdString(name)))) {
      QPainter painter(&pixmap);
      painter.scale(pixels, pixels);
      painter.drawPicture(0, 0, drawing);
    }
  }
  pixmap.setDevicePixelRatio(ratio);
  return pixmap;
}

void ShelfPainter::paintLabel(QPainter& painter, const Frame& frame) {
  const auto label = labelOf(frame);
  if (!label) {
    return;
  }
  painter.setBrush(look_.label);
  painter.setPen(QPen(look_.labelRim, 1));
  painter.drawRoundedRect(label->adjusted(0.5, 0.5, -0.5, -0.5), labelRadius - 0.5, labelRadius - 0.5);
  painter.setPen(look_.labelText);
  painter.setFont(labelFont());
  painter.drawText(*label, Qt::AlignCenter, frame.items[*frame.labelled].label);
}

}  // namespace tarnwell::standin
