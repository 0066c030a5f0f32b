#include "profile/values/Profile.h"

namespace tarnwell::profile {
namespace {

bool isReached(const Goal& goal, const core::StoredValue& stored) {
  const auto* wish = std::get_if<Wish>(&goal);
  return wish != nullptr ? isFulfilled(*wish, stored) : std::get<core::StoredValue>(goal) == stored;
}

template <class Goals>
std::vector<Change> changesFor(const core::StoredValues& from, const Goals& to) {
  std::vector<Change> changes;
  for (std::size_t index = 0; index < settings.size(); ++index) {
    const auto& goal = to.at(index);
    if (goal && !isReached(*goal, from.at(index))) {
      changes.push_back({index, from.at(index), *goal});
    }
  }
  return changes;
}

}  // namespace

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
  return changesFor(from, to.wishes);
}

std::vector<Change> differences(const core::StoredValues& from, const Before& to) { return changesFor(from, to); }

bool isDone(const Change& change, const core::StoredValue& stored) { return isReached(change.to, stored); }

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
