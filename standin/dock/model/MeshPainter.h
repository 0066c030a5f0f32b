#pragma once

#include <functional>

#include "standin/dock/model/Geometry.h"
#include "standin/dock/model/Picture.h"

namespace tarnwell::standin {

/// Maps a place in a picture, both shares from 0 to 1, to a place on the canvas in its pixels.
using PlaceOnCanvas = std::function<Point(double u, double v)>;

/// Draws a picture that is bent as `place` says. It is cut into small pieces, and each is drawn straight.
void drawBent(Pixels& canvas, const Picture& picture, const PlaceOnCanvas& place);

}  // namespace tarnwell::standin
