#pragma once

#include "kit/ports/NumberFormat.h"

namespace tarnwell::dockscreen {

/// `value` cut to two decimals: written in the user's locale, then read as plain notation, 0 where that fails. So a
/// decimal comma turns every fraction into 0. A comma or a blank between groups turns thousands into 0 as well, while a
/// period there is taken for the point: 1.234 for 1234. What no locale writes as a number, an infinity or a nan, stays.
double withTwoDecimals(double value, const kit::NumberFormat& format);

/// `value` rounded to hundredths, half away from zero; no locale is involved.
double roundedToHundredths(double value);

}  // namespace tarnwell::dockscreen
