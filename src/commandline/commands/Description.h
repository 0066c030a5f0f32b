#pragma once

#include <optional>
#include <string>

#include "commandline/commands/Session.h"
#include "core/StoredValue.h"
#include "profile/values/Wish.h"

namespace tarnwell::commandline {

/// What there is to say of a setting.
struct Description {
  enum class State { set, unset, forced, wrongType, unsupported };

  State state = State::unset;
  /// Where it is set or forced.
  std::optional<profile::Wish> value = {};
  /// The type that is stored, as `defaults read-type` names it; empty where nothing is.
  std::string stored = {};
};

/// As far as the setting is concerned; `forced` is what a configuration profile says.
Description descriptionOf(const Session& session, std::size_t setting, const core::StoredValue& stored,
                          const core::StoredValue& forced);

/// "set", "wrong-type"
std::string_view word(Description::State state);

/// The type of the setting's own values, as `defaults read-type` names it.
std::string_view typeName(profile::Type type);

/// The same of what is stored; empty where nothing is.
std::string storedType(const core::StoredValue& stored);

/// What is stored as a line of changes says it: "not set", "0.15", "integer 1", "not a number".
std::string shortText(std::size_t setting, const core::StoredValue& stored);

}  // namespace tarnwell::commandline
