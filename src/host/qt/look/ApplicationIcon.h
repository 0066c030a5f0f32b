#pragma once

#include <QtGui/QIcon>

namespace tarnwell::host_qt {

/// The application's own icon, in the sizes that windows and panels ask for.
QIcon applicationIcon();

/// The same in one size: a square of `points` for a device with `scale` pixels a point.
QPixmap applicationPicture(int points, double scale);

}  // namespace tarnwell::host_qt
