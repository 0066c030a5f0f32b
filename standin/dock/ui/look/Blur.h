#pragma once

#include <QtGui/QPixmap>

namespace tarnwell::standin {

/// The picture out of focus, as through frosted glass. Takes some milliseconds for a whole screen.
QPixmap blurred(const QPixmap& picture);

}  // namespace tarnwell::standin
