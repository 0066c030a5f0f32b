#pragma once

#include <optional>

#include "kit/host/Geometry.h"

namespace tarnwell::kit {

/// The room that a parent offers, in points. An absent side asks for the ideal length.
struct Proposal {
  std::optional<double> width = std::nullopt;
  std::optional<double> height = std::nullopt;
  friend bool operator==(const Proposal&, const Proposal&) = default;
};

/// What a child takes of it.
struct Measurement {
  Size size = {};
  double firstBaseline = 0;  ///< From the top to the baseline of the first text, or to what lines up with one.
  friend bool operator==(const Measurement&, const Measurement&) = default;
};

}  // namespace tarnwell::kit
