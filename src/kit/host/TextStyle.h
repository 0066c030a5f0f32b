#pragma once

namespace tarnwell::kit {

enum class FontRole { body, subheadline, caption };

enum class ColorRole { primary, secondary };

enum class TextAlignment { leading, center, trailing };

}  // namespace tarnwell::kit
