#include "commandline/dock/ChangeMemory.h"

#include <gtest/gtest.h>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/Sandbox.h"

namespace tarnwell::commandline {
namespace {

TEST(ChangeMemory, saysThatAnotherProcessHasItsTurn) {
  const fixtures::Sandbox sandbox;
  const fixtures::EnvironmentScope home("HOME", sandbox.path().string());
  const fixtures::EnvironmentScope state("XDG_STATE_HOME", (sandbox / "state").string());
  auto first = ChangeMemory::ofUser("tarnwell");
  auto second = ChangeMemory::ofUser("tarnwell");
  ASSERT_TRUE(first->takeTurn({}));
  const auto turn = second->takeTurn({});
  ASSERT_FALSE(turn);
  EXPECT_EQ(turn.error().message, "another process is changing settings");
}

TEST(ChangeMemory, saysWhyItCannotBeLocked) {
  const fixtures::Sandbox sandbox;
  const fixtures::EnvironmentScope home("HOME", sandbox.path().string());
  const fixtures::EnvironmentScope state("XDG_STATE_HOME", sandbox.path().string());
  auto memory = ChangeMemory::ofUser("tarnwell");
  const auto lock = memory->undoFile().parent_path() / "lock";
  std::filesystem::create_directories(lock);
  const auto turn = memory->takeTurn({});
  ASSERT_FALSE(turn);
  EXPECT_EQ(turn.error().message, "cannot lock " + lock.string() + ": Is a directory");
}

}  // namespace
}  // namespace tarnwell::commandline
