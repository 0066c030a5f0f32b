#pragma once

#include <array>
#include <string_view>

#include "commandline/commands/Session.h"
#include "commandline/words/Arguments.h"
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

/// "seconds, 0 to 86400"
std::string valuesText(profile::Type type);
/// "macOS 14"
std::string_view systemsText(core::Gate gate);

Status explain(const Session& session, const Arguments& arguments);

}  // namespace tarnwell::commandline
