#include "profile/toml/ProfileWriter.h"

#include <gtest/gtest.h>

#include "profile/toml/ProfileReader.h"
#include "profile/values/Wishes.h"

namespace tarnwell::profile {
namespace {

using core::MinEffect;

TEST(ProfileWriterTest, aProfileIsWrittenInTheOrderOfTheCatalogue) {
  const Profile profile = named("quick", wishing({{"single-app", Unset()},
                                                  {"showhidden", Unset()},
                                                  {"mineffect", MinEffect::suck},
                                                  {"scroll-to-open", true},
                                                  {"autohide-time-modifier", 0.15F},
                                                  {"autohide-delay", 0.0F}}));
  EXPECT_EQ(profileText(profile), R"(profile = 1
name = "quick"
unset = ["showhidden", "single-app"]

[dock]
autohide-delay = 0.0
autohide-time-modifier = 0.15
scroll-to-open = true
mineffect = "suck"
)");
}

TEST(ProfileWriterTest, aProfileThatWantsNothingIsOneStill) {
  EXPECT_EQ(profileText(Profile()), "profile = 1\n\n[dock]\n");
}

TEST(ProfileWriterTest, whatIsWrittenReadsBackToTheSame) {
  const Profile profile = {.name = R"(a "b" \ # ü)", .wishes = {Wish(0.000001F), Unset(), {}, {}, Wish(false)}};
  const std::string text = profileText(profile);
  const auto again = readProfile(text, "again");
  ASSERT_TRUE(again) << again.error().message;
  EXPECT_EQ(*again, profile);
  EXPECT_EQ(profileText(*again), text);
}

}  // namespace
}  // namespace tarnwell::profile
