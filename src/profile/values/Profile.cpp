#include "profile/values/Profile.h"

#include <variant>

namespace tarnwell::profile {

std::vector<WantedValue> valuesOf(const Profile& profile) {
  std::vector<WantedValue> values;
  for (std::size_t index = 0; index < settings.size(); ++index) {
    const auto& wish = profile.wishes.at(index);
    if (wish && *wish != Wish(Unset())) {
      values.push_back({settings.at(index), *wish});
    }
  }
  return values;
}

std::vector<std::string> unsetKeysOf(const Profile& profile) {
  std::vector<std::string> keys;
  for (std::size_t index = 0; index < settings.size(); ++index) {
    if (profile.wishes.at(index) == Wish(Unset())) {
      keys.emplace_back(settings.at(index).key);
    }
  }
  return keys;
}

StoredProfile profileOf(const core::StoredValues& stored, Missing missing) {
  StoredProfile result;
  for (std::size_t index = 0; index < settings.size(); ++index) {
    auto& wish = result.profile.wishes.at(index);
    if (!std::holds_alternative<core::Absent>(stored.at(index))) {
      wish = meaningOf(settings.at(index), stored.at(index));
      if (!wish) {
        result.leftOut.push_back(index);
      }
    } else if (missing == Missing::unset) {
      wish = Unset();
    }
  }
  return result;
}

std::vector<Change> differences(const core::StoredValues& from, const Profile& to) {
  std::vector<Change> changes;
  for (std::size_t index = 0; index < settings.size(); ++index) {
    const auto& wish = to.wishes.at(index);
    if (wish && !isFulfilled(*wish, from.at(index))) {
      changes.push_back({index, from.at(index), *wish});
    }
  }
  return changes;
}

std::vector<WishChange> differences(const Profile& from, const Profile& to) {
  std::vector<WishChange> changes;
  for (std::size_t index = 0; index < settings.size(); ++index) {
    if (from.wishes.at(index) != to.wishes.at(index)) {
      changes.push_back({index, from.wishes.at(index), to.wishes.at(index)});
    }
  }
  return changes;
}

}  // namespace tarnwell::profile
