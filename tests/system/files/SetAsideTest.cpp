#include "system/files/SetAside.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "fixtures/Sandbox.h"

namespace tarnwell::system {
namespace {

TEST(SetAsideTest, theFileHasBothNames) {
  const fixtures::Sandbox sandbox;
  sandbox.write("store", "garbage");
  const auto aside = setAside(sandbox / "store");
  ASSERT_TRUE(aside) << aside.error().message;
  EXPECT_EQ(*aside, sandbox / "store.damaged-1");
  EXPECT_TRUE(std::filesystem::equivalent(*aside, sandbox / "store"));
}

TEST(SetAsideTest, whatWasSetAsideBeforeIsLeftAlone) {
  const fixtures::Sandbox sandbox;
  for (const std::string content : {"one", "two", "three"}) {
    std::filesystem::remove(sandbox / "store");
    sandbox.write("store", content);
    EXPECT_TRUE(setAside(sandbox / "store"));
  }
  EXPECT_EQ(sandbox.read("store.damaged-1"), "one");
  EXPECT_EQ(sandbox.read("store.damaged-2"), "two");
  EXPECT_EQ(sandbox.read("store.damaged-3"), "three");
}

TEST(SetAsideTest, thereAreAThousandNames) {
  const fixtures::Sandbox sandbox;
  sandbox.write("store", "garbage");
  for (int number = 1; number <= 999; ++number) {
    sandbox.write("store.damaged-" + std::to_string(number), "");
  }
  EXPECT_TRUE(setAside(sandbox / "store"));
  const auto oneMore = setAside(sandbox / "store");
  ASSERT_FALSE(oneMore);
  EXPECT_EQ(oneMore.error().error, EEXIST);
}

TEST(SetAsideTest, aFailureNamesTheFileAndTheReason) {
  const fixtures::Sandbox sandbox;
  const auto aside = setAside(sandbox / "absent");
  ASSERT_FALSE(aside);
  EXPECT_EQ(aside.error().error, ENOENT);
  EXPECT_EQ(aside.error().message,
            "cannot set aside " + sandbox.path().string() + "/absent: No such file or directory");
}

}  // namespace
}  // namespace tarnwell::system
