#pragma once

#include <string>

#include "kit/host/TextStyle.h"

namespace tarnwell::view {

// Words for a dump.

/// A number in its shortest notation, in no locale.
std::string plainText(double value);

std::string alignmentName(kit::TextAlignment alignment);

}  // namespace tarnwell::view
