#pragma once

#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtGui/QPixmap>

class QPainter;

namespace tarnwell::host_qt {

struct Palette;

enum class Direction { up, down };

/// `rect` with its edges on whole device pixels, and at least one pixel wide and high.
QRectF onDevicePixels(const QPainter& painter, const QRectF& rect);

/// The length of one device pixel in points.
double hairlineWidth(const QPainter& painter);

/// A filled, rounded shape with a hairline within its edge.
void drawRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& fill, const QColor& border);

/// The raised face of a button, a switch or a stepper, with the faint shadow below it.
void drawFace(QPainter& painter, const QRectF& rect, double radius, const QColor& fill, const Palette& palette);

/// A bar that is filled up to where `filled` ends, and an empty groove from there on.
void drawTrack(QPainter& painter, const QRectF& track, const QRectF& filled, const Palette& palette);

/// A knob with its soft shadow.
void drawKnob(QPainter& painter, const QRectF& rect, double radius, const Palette& palette);

/// A small arrow without a shaft, centred on `centre`; `size` is its width in points.
void drawChevron(QPainter& painter, const QPointF& centre, double size, Direction direction, const QColor& color);

/// A drawing of this program's resources, so many device pixels wide and high, on nothing.
QPixmap pictureOf(const QString& resource, int side);

}  // namespace tarnwell::host_qt
