#pragma once

#include <optional>
#include <string_view>

namespace tarnwell::core {

/// How a window shrinks into the Dock. The order is that of the picker.
enum class MinEffect { genie, scale, suck };

/// The case name, as commands carry it.
std::string_view text(MinEffect effect);

/// The case that `text` names, in any letter case; none for every other text, display names included.
std::optional<MinEffect> parseMinEffect(std::string_view text);

}  // namespace tarnwell::core
