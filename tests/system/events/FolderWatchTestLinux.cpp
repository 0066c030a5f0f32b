#include <gtest/gtest.h>

#include "fixtures/Sandbox.h"
#include "system/events/FolderWatch.h"

namespace tarnwell::system {
namespace {

using Clock = std::chrono::steady_clock;

TEST(FolderWatchTest, wakesUpOnceForWhatWasWritten) {
  const fixtures::Sandbox sandbox;
  const FolderWatch watch(sandbox.path().string());
  EXPECT_FALSE(watch.wait(Clock::now()));
  for (const char* name : {"one", "two"}) {
    sandbox.write(name, "text");
  }
  EXPECT_TRUE(watch.wait(Clock::now() + std::chrono::minutes(1)));
  EXPECT_FALSE(watch.wait(Clock::now()));
}

TEST(FolderWatchTest, nothingHappensInAFolderThatIsNotThere) {
  const fixtures::Sandbox sandbox;
  const FolderWatch watch((sandbox / "absent").string());
  const auto begin = Clock::now();
  EXPECT_FALSE(watch.wait(begin + std::chrono::minutes(1)));
  EXPECT_LT(Clock::now(), begin + std::chrono::minutes(1));
}

}  // namespace
}  // namespace tarnwell::system
