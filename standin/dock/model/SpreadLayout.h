#pragma once

#include <vector>

#include "standin/dock/model/Geometry.h"

namespace tarnwell::standin {

/// Places for windows side by side in an area, none covering another, in rows, each no larger than it is.
std::vector<Rectangle> spreadOut(const std::vector<Rectangle>& windows, const Rectangle& area);

}  // namespace tarnwell::standin
