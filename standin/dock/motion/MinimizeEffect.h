#pragma once

#include <string_view>

namespace tarnwell::standin {

enum class MinimizeEffect { genie, scale, suck };

/// The name that the preferences have for it.
std::string_view effectName(MinimizeEffect effect);

/// The effect of that name, in any case; genie for every other text.
MinimizeEffect effectNamed(std::string_view name);

}  // namespace tarnwell::standin
