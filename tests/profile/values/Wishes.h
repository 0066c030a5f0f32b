#pragma once

#include <initializer_list>
#include <string_view>
#include <utility>

#include "profile/values/Profile.h"

namespace tarnwell::profile {

/// By key; what has none in here is left alone.
inline Profile wishing(std::initializer_list<std::pair<std::string_view, Wish>> wishes) {
  Profile profile;
  for (const auto& [key, wish] : wishes) {
    profile.wishes.at(settingNamed(key).value()) = wish;
  }
  return profile;
}

inline Profile named(std::string_view name, Profile profile) {
  profile.name = name;
  return profile;
}

}  // namespace tarnwell::profile
