#pragma once

#include <QtCore/QPointF>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <string_view>

#include "kit/host/Geometry.h"

namespace tarnwell::host_qt {

QString toQString(std::string_view utf8);

kit::Point toPoint(const QPointF& point);
QPointF toQPointF(const kit::Point& point);

/// Rounds to whole points; what the layout gives is whole already.
QRect toQRect(const kit::Rect& rect);
QRectF toQRectF(const kit::Rect& rect);
kit::Rect toRect(const QRect& rect);

}  // namespace tarnwell::host_qt
