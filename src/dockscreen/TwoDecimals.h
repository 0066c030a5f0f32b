#pragma once

#include "kit/NumberFormat.h"

namespace tarnwell::dockscreen {

/// `value` cut to two decimals the way it always was: written in the user's locale, then read as plain notation, 0
/// where that fails. So a locale with a decimal comma turns every fraction into 0, and a grouping mark does the same to
/// thousands. What no locale writes as a number, an infinity or a nan, stays.
double withTwoDecimals(double value, const kit::NumberFormat& format);

/// `value` rounded to hundredths, half away from zero; no locale is involved.
double roundedToHundredths(double value);

}  // namespace tarnwell::dockscreen
