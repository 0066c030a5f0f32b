#pragma once

#include <QtCore/QRectF>
#include <QtCore/Qt>

class QPainter;

namespace tarnwell::host_qt {

class Theme;

/// How far the ring around what has the focus reaches beyond its face, in points.
inline constexpr int panelRing = 3;

/// Whether the user moved the focus with the keyboard, and so wants to see where it is.
bool isFromKeyboard(Qt::FocusReason reason);

/// The ring around a face with rounded corners.
void drawPanelRing(QPainter& painter, const QRectF& face, double radius, const Theme& theme);

}  // namespace tarnwell::host_qt
