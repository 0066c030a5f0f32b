#pragma once

namespace tarnwell::kit {

/// What a peer is told has changed; it reads the new state from its control.
enum class Aspect { enabled, value, title, style, rotation, accessibleName, accessibleDescription, visible, level };

}  // namespace tarnwell::kit
