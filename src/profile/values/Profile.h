#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "core/StoredValue.h"
#include "profile/values/Wish.h"

namespace tarnwell::profile {

/// Settings of the Dock as somewhere wanted, to be applied, kept and handed on.
struct Profile {
  /// One line of visible text, or nothing. What exports call it; it decides nothing.
  std::string name = {};
  /// In the order of `settings`; nothing for one that is left alone.
  std::array<std::optional<Wish>, settings.size()> wishes = {};

  bool operator==(const Profile&) const = default;
};

/// A setting with the value that it shall have.
struct WantedValue {
  Setting setting;
  Wish value;
};

/// Those that shall have a value, and the keys of those that shall have none, in the order of `settings`.
std::vector<WantedValue> valuesOf(const Profile& profile);
std::vector<std::string> unsetKeysOf(const Profile& profile);

/// What a profile says of the settings that are not in the store.
enum class Missing { leftAlone, unset };

/// A profile of what is stored, and the settings whose stored values no profile can have.
struct StoredProfile {
  Profile profile = {};
  std::vector<std::size_t> leftOut = {};
};

/// Values of another type are taken for what they mean.
StoredProfile profileOf(const core::StoredValues& stored, Missing missing);

/// What settings were: a value as it was stored, or that there was none. In the order of `settings`; nothing for one
/// that is left alone.
using Before = std::array<std::optional<core::StoredValue>, settings.size()>;

/// What a setting shall become: a value that a profile can have, or whatever was stored, in just that type.
using Goal = std::variant<Wish, core::StoredValue>;

/// What is to be done to a setting.
struct Change {
  std::size_t setting;
  core::StoredValue from;
  Goal to;
};

/// What has to change in the store for the profile to hold. A value that is equal but of another type has to.
std::vector<Change> differences(const core::StoredValues& from, const Profile& to);
/// The same for the settings to be as they were.
std::vector<Change> differences(const core::StoredValues& from, const Before& to);

/// Whether the store holds what the change was for.
bool isDone(const Change& change, const core::StoredValue& stored);

/// A setting of which two profiles want different things.
struct WishChange {
  std::size_t setting;
  std::optional<Wish> from;
  std::optional<Wish> to;
};

std::vector<WishChange> differences(const Profile& from, const Profile& to);

}  // namespace tarnwell::profile
