#pragma once

#include <optional>
#include <string_view>

#include "host/linux/NumberSymbols.h"

namespace tarnwell::host_linux {

/// What a user typed, read strictly: blanks around, a minus, digits with whole groups or with none, and a fraction.
/// One side of the decimal separator may be empty, not both. Nothing for everything else: no plus, no exponent, no
/// infinity, and no group that the locale would not write, so that a German "0.456" is an error and not 456.
std::optional<double> typedNumber(std::u32string_view text, const NumberSymbols& symbols);

}  // namespace tarnwell::host_linux
