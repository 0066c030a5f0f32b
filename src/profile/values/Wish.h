#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "core/MinEffect.h"
#include "core/StoredValue.h"
#include "profile/values/Setting.h"
#include "system/base/Result.h"

namespace tarnwell::profile {

/// That a key shall not be there: the Dock decides.
struct Unset {
  bool operator==(const Unset&) const = default;
};

/// What is wanted of a setting: that it be gone, or a value of its type, seconds as `core::roundedDecimal` gives them.
using Wish = std::variant<Unset, float, bool, core::MinEffect>;

/// A wish for a setting of the type, or why it can have no such value; the failure's message begins with the key and
/// ends without a full stop. Seconds are rounded to what can be kept of them; `said` is how they were, where that may
/// be more than a number can. The effect is exactly one of three words.
system::Result<Wish> secondsWish(const Setting& setting, double seconds);
system::Result<Wish> secondsWish(const Setting& setting, double seconds, std::string_view said);
system::Result<Wish> effectWish(const Setting& setting, std::string_view word);

/// The value as a profile has it but for quotes: "0.15", "true", "suck"; "not set" where there shall be none.
std::string text(const Wish& wish);

/// Whether the store holds just that: the value in its own type, equal after rounding, or nothing.
bool isFulfilled(const Wish& wish, const core::StoredValue& stored);

/// What the stored value says of the setting, whatever its type, as the text says that `defaults read` prints of it: an
/// integer 1 is true. Nothing for what says nothing, and where nothing is stored.
std::optional<Wish> meaningOf(const Setting& setting, const core::StoredValue& stored);

}  // namespace tarnwell::profile
