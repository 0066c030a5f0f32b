#include "host/qt/look/Drawing.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QPicture>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "host/qt/look/Palette.h"

namespace tarnwell::host_qt {
namespace {

constexpr double chevronStroke = 1.4;
// How the knob's shadow fades: each ring is this much larger than the one before.
constexpr double shadowStep = 0.75;

/// A diagonal with round ends. A pen would have the toolkit find each end's directions anew.
void addDiagonal(QPainterPath& path, const QPointF& from, const QPointF& to, double width) {
  const QPointF way = to - from;
  const QPointF aside = QPointF(way.y(), -way.x()) * (width / 2 / std::numbers::sqrt2 / std::abs(way.x()));
  // The same way round as the ends.
  path.addPolygon(QPolygonF({from + aside, to + aside, to - aside, from - aside}));
  path.closeSubpath();
  path.addEllipse(from, width / 2, width / 2);
  path.addEllipse(to, width / 2, width / 2);
}

}  // namespace

QRectF onDevicePixels(const QPainter& painter, const QRectF& rect) {
  const QTransform toDevice = painter.deviceTransform();
  const QRectF device = toDevice.mapRect(rect);
  const double left = std::round(device.left());
  const double top = std::round(device.top());
  const double width = std::max(1.0, std::round(device.width()));
  const double height = std::max(1.0, std::round(device.height()));
  return toDevice.inverted().mapRect(QRectF(left, top, width, height));
}

double hairlineWidth(const QPainter& painter) { return 1 / painter.device()->devicePixelRatioF(); }

void drawRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& fill, const QColor& border) {
  const double line = hairlineWidth(painter);
  const QRectF middle = rect.adjusted(line / 2, line / 2, -line / 2, -line / 2);
  painter.setPen(Qt::NoPen);
  painter.setBrush(fill);
  painter.drawRoundedRect(middle, radius - line / 2, radius - line / 2);
  // By a pen the toolkit would take twice as long for the same pixels.
  QPainterPath ring;
  ring.addRoundedRect(rect, radius, radius);
  ring.addRoundedRect(rect.adjusted(line, line, -line, -line), radius - line, radius - line);
  painter.fillPath(ring, border);
}

void drawFace(QPainter& painter, const QRectF& rect, double radius, const QColor& fill, const Palette& palette) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette.shadow);
  painter.drawRoundedRect(rect.translated(0, 0.75), radius, radius);
  drawRounded(painter, rect, radius, fill, palette.controlBorder);
}

void drawTrack(QPainter& painter, const QRectF& track, const QRectF& filled, const Palette& palette) {
  const double radius = track.height() / 2;
  drawRounded(painter, track, radius, palette.fieldFace, palette.controlBorder);
  QPainterPath shape;
  shape.addRoundedRect(track, radius, radius);
  QPainterPath part;
  part.addRoundedRect(filled, radius, radius);
  painter.fillPath(shape & part, palette.accent);
}

void drawKnob(QPainter& painter, const QRectF& rect, double radius, const Palette& palette) {
  painter.setPen(Qt::NoPen);
  QColor faint = palette.shadow;
  faint.setAlpha(palette.shadow.alpha() / 3);
  painter.setBrush(faint);
  for (int ring = 1; ring <= 2; ++ring) {
    const double grown = ring * shadowStep;
    painter.drawRoundedRect(rect.adjusted(-grown, -grown, grown, grown), radius + grown, radius + grown);
  }
  drawRounded(painter, rect, radius, palette.knob, palette.knobBorder);
}

void drawChevron(QPainter& painter, const QPointF& centre, double size, Direction direction, const QColor& color) {
  const double half = size / 2;
  const double rise = direction == Direction::up ? -half / 2 : half / 2;
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  for (const double end : {-half, half}) {
    addDiagonal(path, centre + QPointF(end, -rise), centre + QPointF(0, rise), chevronStroke);
  }
  painter.fillPath(path, color);
}

QPixmap pictureOf(const QString& resource, int side) {
  QPixmap pixmap(side, side);
  pixmap.fill(Qt::transparent);
  QPicture drawing;
  if (drawing.load(resource)) {
    QPainter painter(&pixmap);
    painter.scale(side, side);
    painter.drawPicture(0, 0, drawing);
  }
  return pixmap;
}

}  // namespace tarnwell::host_qt
