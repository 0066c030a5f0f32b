#pragma once

#include <optional>
#include <string_view>

#include "kit/host/Measurement.h"
#include "kit/host/TextStyle.h"

namespace tarnwell::host_painted {

/// How large a host draws a text.
class TextMeasurer {
 public:
  virtual ~TextMeasurer() = default;

  /// The size of `text`, broken into lines where `width` (points) is given.
  virtual kit::Measurement measureText(std::string_view text, kit::FontRole font,
                                       std::optional<double> width) const = 0;

  /// The height of one line.
  double lineHeight(kit::FontRole font) const { return measureText({}, font, std::nullopt).size.height; }

  /// The height of a capital letter: symbols and knobs are centred on it.
  virtual double capHeight(kit::FontRole font) const = 0;
};

}  // namespace tarnwell::host_painted
