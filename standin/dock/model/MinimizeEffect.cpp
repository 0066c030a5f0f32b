#include "standin/dock/model/MinimizeEffect.h"

#include <algorithm>
#include <array>

namespace tarnwell::standin {
namespace {

constexpr std::array effects = {MinimizeEffect::genie, MinimizeEffect::scale, MinimizeEffect::suck};

char lower(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter; }

bool isSame(std::string_view left, std::string_view right) { return std::ranges::equal(left, right, {}, lower, lower); }

}  // namespace

std::string_view effectName(MinimizeEffect effect) {
  switch (effect) {
    case MinimizeEffect::scale:
      return "scale";
    case MinimizeEffect::suck:
      return "suck";
    case MinimizeEffect::genie:
      break;
  }
  return "genie";
}

MinimizeEffect effectNamed(std::string_view name) {
  const auto* found = std::ranges::find_if(effects, [&](auto each) { return isSame(effectName(each), name); });
  return found == effects.end() ? MinimizeEffect::genie : *found;
}

}  // namespace tarnwell::standin
