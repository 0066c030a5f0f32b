#include "standin/dock/motion/MinimizeEffect.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tarnwell::standin {
namespace {

// In the order of the effects.
constexpr std::array<std::string_view, 3> names = {"genie", "scale", "suck"};

char lower(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter; }

bool isSame(std::string_view left, std::string_view right) { return std::ranges::equal(left, right, {}, lower, lower); }

}  // namespace

std::string_view effectName(MinimizeEffect effect) { return names.at(static_cast<std::size_t>(effect)); }

MinimizeEffect effectNamed(std::string_view name) {
  const auto* const found = std::ranges::find_if(names, [&](std::string_view each) { return isSame(each, name); });
  return found == names.end() ? MinimizeEffect::genie : static_cast<MinimizeEffect>(found - names.begin());
}

}  // namespace tarnwell::standin
