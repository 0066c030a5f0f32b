#pragma once

#include <QtCore/QRectF>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtGui/QRegion>

#include "standin/dock/ui/look/Look.h"

namespace tarnwell::standin {

/// A rounded sheet of glass, as the shelf is one. `behind`, where there is one, is what can be seen through it.
void paintPanel(QPainter& painter, const QRectF& place, double radius, const QColor& glass, const Look& look,
                const QPixmap& behind);

/// What it covers, line by line where it is round. What is behind it may change while it is there, and a corner that
/// shows the picture from before would be seen.
QRegion panelRegion(const QRectF& place, double radius);

}  // namespace tarnwell::standin
