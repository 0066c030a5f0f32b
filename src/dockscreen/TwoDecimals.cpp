#include "dockscreen/TwoDecimals.h"

#include <cmath>

#include "core/ValueText.h"

namespace tarnwell::dockscreen {

double withTwoDecimals(double value, const kit::NumberFormat& format) {
  return std::isfinite(value) ? core::parseFloat(format.text(value, 2)) : value;
}

double roundedToHundredths(double value) { return std::round(value * 100) / 100; }

}  // namespace tarnwell::dockscreen
