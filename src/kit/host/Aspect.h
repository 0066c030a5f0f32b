#pragma once

namespace tarnwell::kit {

/// What a peer is told has changed; it reads the new state from its control.
enum class Aspect { enabled, value, title, style, accessibleName, accessibleDescription, visible, level };

}  // namespace tarnwell::kit
