#pragma once

#include <QtCore/QRectF>
#include <QtGui/QColor>

#include "kit/controls/choices/PopUpButton.h"

class QPainter;

namespace tarnwell::host_qt {

class Theme;

/// A pop-up button's item on one line, the title and then its symbol, as the button and its menu both show it.
void drawItemLine(QPainter& painter, const kit::PopUpButton::Item& item, const QRectF& line, const QColor& color,
                  const Theme& theme);

/// In points.
double itemLineWidth(const kit::PopUpButton::Item& item, const Theme& theme);

}  // namespace tarnwell::host_qt
