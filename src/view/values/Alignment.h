#pragma once

#include "kit/host/TextStyle.h"

namespace tarnwell::view {

/// Where something `length` long starts in `room`.
inline double aligned(kit::TextAlignment alignment, double length, double room) {
  switch (alignment) {
    case kit::TextAlignment::leading:
      return 0;
    case kit::TextAlignment::center:
      return (room - length) / 2;
    case kit::TextAlignment::trailing:
      return room - length;
  }
  return 0;
}

}  // namespace tarnwell::view
