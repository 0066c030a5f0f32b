#include "host/linux/NumberLocale.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace tarnwell::host_linux {
namespace {

constexpr std::array scripts = {
    std::pair<std::string_view, std::string_view>{"latin", "Latn"},
    std::pair<std::string_view, std::string_view>{"cyrillic", "Cyrl"},
    std::pair<std::string_view, std::string_view>{"devanagari", "Deva"},
    std::pair<std::string_view, std::string_view>{"arabic", "Arab"},
};

bool isNameCharacter(char character) {
  const bool letter = (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
  return letter || (character >= '0' && character <= '9') || character == '_' || character == '-';
}

bool isName(std::string_view text) {
  constexpr std::size_t longest = 64;
  return !text.empty() && text.size() <= longest && std::all_of(text.begin(), text.end(), isNameCharacter);
}

std::string withScript(std::string_view name, std::string_view script) {
  const auto regionAt = std::min(name.find('_'), name.size());
  return std::string(name.substr(0, regionAt)) + "_" + std::string(script) + std::string(name.substr(regionAt));
}

}  // namespace

std::string numberLocaleOfEnvironment() {
  for (const char* variable : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') {
      return localeNamed(value);
    }
  }
  return std::string(plainLocale);
}

std::string localeNamed(std::string_view environmentName) {
  const auto modifierAt = environmentName.find('@');
  const auto name = environmentName.substr(0, std::min(environmentName.find('.'), modifierAt));
  if (!isName(name) || name == "C" || name == "POSIX") {
    return std::string(plainLocale);
  }
  if (modifierAt == std::string_view::npos) {
    return std::string(name);
  }
  const auto modifier = environmentName.substr(modifierAt + 1);
  const auto* const known =
      std::find_if(scripts.begin(), scripts.end(), [&](const auto& script) { return script.first == modifier; });
  return known == scripts.end() ? std::string(name) : withScript(name, known->second);
}

}  // namespace tarnwell::host_linux
