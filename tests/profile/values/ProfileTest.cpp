#include "profile/values/Profile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarnwell::profile {
namespace {

using core::Absent;
using core::MinEffect;
using core::OtherValue;
using core::StoredValues;

const StoredValues stored = {0.5,     Absent(), OtherValue{"integer", "1"}, "swirl", false, OtherValue{"array", ""},
                             Absent()};

TEST(ProfileTest, aStoresProfileHasWhatIsSet) {
  const StoredProfile result = profileOf(stored, Missing::leftAlone);
  const Profile expected = {.wishes = {Wish(0.5F), {}, Wish(true), {}, Wish(false), {}, {}}};
  EXPECT_EQ(result.profile, expected);
  EXPECT_EQ(result.leftOut, (std::vector<std::size_t>{3, 5}));
}

TEST(ProfileTest, anExactProfileUnsetsWhatIsNotThere) {
  const StoredProfile result = profileOf(stored, Missing::unset);
  const Profile expected = {.wishes = {Wish(0.5F), Unset(), Wish(true), {}, Wish(false), {}, Unset()}};
  EXPECT_EQ(result.profile, expected);
}

TEST(ProfileTest, valuesAndUnsetKeysAreToldApart) {
  const Profile profile = {.wishes = {Unset(), Wish(0.15F), {}, Wish(MinEffect::suck), Unset(), {}, {}}};
  const std::vector<WantedValue> values = valuesOf(profile);
  ASSERT_EQ(values.size(), 2);
  EXPECT_EQ(values[0].setting.key, "autohide-time-modifier");
  EXPECT_EQ(values[0].value, Wish(0.15F));
  EXPECT_EQ(values[1].setting.key, "mineffect");
  EXPECT_EQ(unsetKeysOf(profile), (std::vector<std::string>{"autohide-delay", "showhidden"}));
}

TEST(ProfileTest, differencesAreWhatHasToChange) {
  const Profile wanted = {.wishes = {Wish(0.5F), Wish(0.15F), Wish(true), Wish(MinEffect::suck), Unset(), {}, Unset()}};
  const std::vector<Change> changes = differences(stored, wanted);
  ASSERT_EQ(changes.size(), 4);
  EXPECT_EQ(changes[0].setting, 1);
  EXPECT_EQ(changes[0].from, stored[1]);
  EXPECT_EQ(changes[0].to, Goal(Wish(0.15F)));
  // Equal, but an integer.
  EXPECT_EQ(changes[1].setting, 2);
  EXPECT_EQ(changes[1].from, stored[2]);
  EXPECT_EQ(changes[1].to, Goal(Wish(true)));
  EXPECT_EQ(changes[2].setting, 3);
  EXPECT_EQ(changes[3].setting, 4);
  EXPECT_EQ(changes[3].to, Goal(Wish(Unset())));
}

TEST(ProfileTest, nothingDiffersFromAProfileThatWantsNothing) { EXPECT_TRUE(differences(stored, Profile()).empty()); }

TEST(ProfileTest, whatWasStoredIsWantedInItsOwnType) {
  const Before before = {0.5, Absent(), true, "swirl", {}, Absent(), {}};
  const std::vector<Change> changes = differences(stored, before);
  ASSERT_EQ(changes.size(), 2);
  EXPECT_EQ(changes[0].setting, 2);
  EXPECT_EQ(changes[0].to, Goal(core::StoredValue(true)));
  EXPECT_EQ(changes[1].setting, 5);
  EXPECT_FALSE(isDone(changes[0], OtherValue{"integer", "1"}));
  EXPECT_TRUE(isDone(changes[0], true));
  EXPECT_TRUE(isDone(changes[1], Absent()));
}

TEST(ProfileTest, twoProfilesDifferWhereTheyWantDifferentThings) {
  const Profile from = {.name = "a", .wishes = {Wish(0.5F), {}, Wish(true), Unset()}};
  const Profile to = {.name = "b", .wishes = {Wish(0.5F), Unset(), {}, Unset()}};
  const std::vector<WishChange> changes = differences(from, to);
  ASSERT_EQ(changes.size(), 2);
  EXPECT_EQ(changes[0].setting, 1);
  EXPECT_EQ(changes[0].from, std::nullopt);
  EXPECT_EQ(changes[0].to, Wish(Unset()));
  EXPECT_EQ(changes[1].setting, 2);
  EXPECT_EQ(changes[1].from, Wish(true));
  EXPECT_EQ(changes[1].to, std::nullopt);
}

}  // namespace
}  // namespace tarnwell::profile
