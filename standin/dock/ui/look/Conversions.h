#pragma once

#include <QtCore/QRect>

#include "standin/dock/model/Geometry.h"

namespace tarnwell::standin {

/// The toolkit's rectangle as the model counts, in points.
inline Rectangle rectangleOf(const QRect& rect) {
  return {.x = static_cast<double>(rect.x()),
          .y = static_cast<double>(rect.y()),
          .width = static_cast<double>(rect.width()),
          .height = static_cast<double>(rect.height())};
}

}  // namespace tarnwell::standin
