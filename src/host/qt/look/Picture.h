#pragma once

#include <QtCore/QString>
#include <QtGui/QPixmap>

namespace tarnwell::host_qt {

/// A drawing of this program's resources, so many device pixels wide and high, on nothing.
QPixmap pictureOf(const QString& resource, int side);

}  // namespace tarnwell::host_qt
