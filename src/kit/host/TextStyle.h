#pragma once

namespace tarnwell::kit {

/// The last two are bold, and larger than the body.
enum class FontRole { body, subheadline, caption, headline, title };

enum class ColorRole { primary, secondary };

enum class TextAlignment { leading, center, trailing };

}  // namespace tarnwell::kit
