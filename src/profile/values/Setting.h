#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <tuple>
#include <type_traits>

#include "core/Preference.h"

namespace tarnwell::profile {

enum class Type { seconds, boolean, effect };

/// A setting of the Dock as profiles, commands and exports know it.
struct Setting {
  std::string_view key;
  Type type;
  core::Gate gate;
};

template <class T>
constexpr Setting settingOf(const core::Preference<T>& preference) {
  constexpr Type type = std::is_same_v<T, double> ? Type::seconds
                        : std::is_same_v<T, bool> ? Type::boolean
                                                  : Type::effect;
  return {preference.key, type, preference.gate};
}

/// In the order of `core::preferences`. A setting is named by its place in here.
inline constexpr std::array settings =
    std::apply([](const auto&... row) { return std::array{settingOf(row)...}; }, core::preferences);

std::optional<std::size_t> settingNamed(std::string_view key);

/// Seconds that a setting can have are between 0 and this.
inline constexpr int mostSeconds = 86400;

}  // namespace tarnwell::profile
