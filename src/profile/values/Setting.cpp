#include "profile/values/Setting.h"

#include <algorithm>

namespace tarnwell::profile {

std::optional<std::size_t> settingNamed(std::string_view key) {
  const auto* const found = std::ranges::find(settings, key, &Setting::key);
  return found == settings.end() ? std::nullopt : std::optional<std::size_t>(found - settings.begin());
}

}  // namespace tarnwell::profile
