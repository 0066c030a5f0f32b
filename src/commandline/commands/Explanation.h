#pragma once

#include <array>
#include <string_view>

#include "profile/values/Setting.h"

namespace tarnwell::commandline {

/// What there is to know of a setting.
struct Explanation {
  std::string_view key;
  std::string_view summary;
  /// When it does something, and what else it does.
  std::string_view conditions;
  /// What the Dock does where nothing is set.
  std::string_view ownValue;
  /// What the window calls it.
  std::string_view windowLabel;
};

/// In the order of `profile::settings`.
extern const std::array<Explanation, profile::settings.size()> explanations;

/// "macOS 14"
std::string_view systemsText(core::Gate gate);

}  // namespace tarnwell::commandline
