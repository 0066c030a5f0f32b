#include "release/text/Channels.h"

#include <gtest/gtest.h>

namespace tarnwell::release {
namespace {

using Names = std::vector<std::string>;

TEST(Channels, areNamedWithoutBlanksAndOddCharacters) {
  for (const std::string& name : {std::string("beta"), std::string("Nightly-2_x.1"), std::string(50, 'b')}) {
    EXPECT_TRUE(isChannelName(name)) << name;
  }
  for (const std::string& name : {std::string(), std::string("two words"), std::string("be/ta"),
                                  std::string("b\xc3\xa4ta"), std::string("beta\n"), std::string(51, 'b')}) {
    EXPECT_FALSE(isChannelName(name)) << name;
  }
}

TEST(Channels, standInAListBetweenBlanksOrCommas) {
  EXPECT_EQ(channelsIn(""), Names());
  EXPECT_EQ(channelsIn(" ,\t"), Names());
  EXPECT_EQ(channelsIn("beta"), (Names{"beta"}));
  EXPECT_EQ(channelsIn(" beta,nightly;  canary\n"), (Names{"beta", "nightly", "canary"}));
  EXPECT_EQ(channelsIn("be/ta nightly"), (Names{"nightly"}));
}

}  // namespace
}  // namespace tarnwell::release
