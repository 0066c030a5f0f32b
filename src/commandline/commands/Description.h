#pragma once

#include <optional>
#include <string>

#include "commandline/commands/Session.h"
#include "core/StoredValue.h"
#include "profile/values/Wish.h"

namespace tarnwell::commandline {

/// What there is to say of a setting.
struct Description {
  enum class State { set, unset, forced, wrongType, wrongValue, unsupported };

  State state = State::unset;
  /// What the value that is stored or forced means; nothing where that is of no use.
  std::optional<profile::Wish> value = {};
  /// The type that is stored, as `defaults read-type` names it; empty where nothing is.
  std::string stored = {};
  /// What `list` has behind the value, or in its place, where another one is stored: "   stored as integer".
  std::string remark = {};
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

/// What is stored as a line of changes says it: "not set", "0.15", "integer 1", "not a number", "out of range".
std::string shortText(std::size_t setting, const core::StoredValue& stored);

}  // namespace tarnwell::commandline
