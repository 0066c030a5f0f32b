#include "host/qt/look/Symbols.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <cmath>

#include "diagnostics/Console.h"
#include "host/qt/look/Conversions.h"
#include "host/qt/look/Drawing.h"
#include "host/qt/look/Outline.h"

namespace tarnwell::host_qt {
namespace {

QPainterPath pathOf(const Outline& outline) {
  QPainterPath path;
  path.setFillRule(outline.rule);
  path.reserve(static_cast<int>(outline.points.size()));
  for (const OutlinePoint& point : outline.points) {
    const QPointF place = QPointF(point.x, point.y) / OutlinePoint::side;
    point.isFirst ? path.moveTo(place) : path.lineTo(place);
  }
  return path;
}

QPixmap rendered(const std::vector<Outline>& outlines, int devicePixels, const QColor& color) {
  QPixmap pixmap(devicePixels, devicePixels);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(devicePixels, devicePixels);
  for (const Outline& outline : outlines) {
    painter.fillPath(pathOf(outline), Qt::black);
  }
  // Where two overlap, a colour that shines through does so once.
  painter.resetTransform();
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(pixmap.rect(), color);
  return pixmap;
}

}  // namespace

bool Symbols::has(const std::string& name) { return outlines().contains(name); }

void Symbols::draw(QPainter& painter, const std::string& name, const QRectF& target, const QColor& color) {
  if (name.empty()) {
    return;
  }
  if (!has(name)) {
    reportMissing(name);
    return;
  }
  const QRectF snapped = onDevicePixels(painter, target);
  const double scale = painter.device()->devicePixelRatioF();
  painter.drawPixmap(snapped, pixmap(name, static_cast<int>(std::lround(snapped.width() * scale)), color), {});
}

QPixmap Symbols::pixmap(const std::string& name, int devicePixels, const QColor& color) {
  const QString key = QStringLiteral("%1/%2/%3").arg(toQString(name)).arg(devicePixels).arg(color.rgba());
  const auto found = drawn_.constFind(key);
  return found != drawn_.constEnd() ? *found : *drawn_.insert(key, rendered(outlines().at(name), devicePixels, color));
}

void Symbols::reportMissing(const std::string& name) {
  if (reported_.insert(name).second) {
    diagnostics::reportError("there is no picture of the symbol \"" + name + "\"");
  }
}

}  // namespace tarnwell::host_qt
