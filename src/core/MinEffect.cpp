#include "core/MinEffect.h"

#include <array>
#include <string>

namespace tarnwell::core {
namespace {

constexpr std::array effects = {MinEffect::genie, MinEffect::scale, MinEffect::suck};

std::string lowerCased(std::string_view text) {
  // The Kelvin sign is the one character beyond ASCII whose lower case is an ASCII letter.
  constexpr std::string_view kelvinSign = "\u212A";
  std::string result;
  while (!text.empty()) {
    if (text.starts_with(kelvinSign)) {
      result += 'k';
      text.remove_prefix(kelvinSign.size());
    } else {
      const char first = text.front();
      result += first >= 'A' && first <= 'Z' ? static_cast<char>(first - 'A' + 'a') : first;
      text.remove_prefix(1);
    }
  }
  return result;
}

}  // namespace

std::string_view text(MinEffect effect) {
  constexpr std::array<std::string_view, effects.size()> names = {"genie", "scale", "suck"};
  return names.at(static_cast<std::size_t>(effect));
}

std::optional<MinEffect> parseMinEffect(std::string_view text) {
  const std::string lower = lowerCased(text);
  for (const MinEffect effect : effects) {
    if (lower == core::text(effect)) {
      return effect;
    }
  }
  return std::nullopt;
}

}  // namespace tarnwell::core
