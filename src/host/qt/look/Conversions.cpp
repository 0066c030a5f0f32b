#include "host/qt/look/Conversions.h"

namespace tarnwell::host_qt {

QString toQString(std::string_view utf8) { return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())); }

kit::Point toPoint(const QPointF& point) { return {.x = point.x(), .y = point.y()}; }

QPointF toQPointF(const kit::Point& point) { return {point.x, point.y}; }

QRect toQRect(const kit::Rect& rect) { return toQRectF(kit::onWholePoints(rect)).toRect(); }

QRectF toQRectF(const kit::Rect& rect) { return {rect.x, rect.y, rect.width, rect.height}; }

kit::Rect toRect(const QRect& rect) {
  return {.x = static_cast<double>(rect.x()),
          .y = static_cast<double>(rect.y()),
          .width = static_cast<double>(rect.width()),
          .height = static_cast<double>(rect.height())};
}

}  // namespace tarnwell::host_qt
