#include "host/macos/MacPlatform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/macos/Stage.h"

namespace tarnwell::host_macos {
namespace {

using testing::Contains;
using testing::Not;

void endTheLaunch() {
  [[NSNotificationCenter defaultCenter] postNotificationName:NSApplicationDidFinishLaunchingNotification object:NSApp];
}

TEST(MacPlatformTest, queuedWorkRunsFromTheEventLoop) {
  Stage stage;
  int runs = 0;
  stage.application->events().async([&runs] { ++runs; });
  stage.application->events().async([&runs] { ++runs; });
  EXPECT_EQ(runs, 0);
  EXPECT_TRUE(becomes([&runs] { return runs == 2; }));
}

TEST(MacPlatformTest, firstWindowsWaitForTheEndOfTheLaunch) {
  Stage stage;
  int opened = 0;
  const kit::Subscription waiting = stage.platform.whenReady([&opened] { ++opened; });
  settle();
  EXPECT_EQ(opened, 0);
  endTheLaunch();
  EXPECT_EQ(opened, 1);
  const kit::Subscription late = stage.platform.whenReady([&opened] { ++opened; });
  EXPECT_EQ(opened, 2);
}

TEST(MacPlatformTest, nothingOpensForWhatHasGoneByTheEndOfTheLaunch) {
  Stage stage;
  int opened = 0;
  {
    const kit::Subscription gone = stage.platform.whenReady([&opened] { ++opened; });
  }
  endTheLaunch();
  EXPECT_EQ(opened, 0);
}

TEST(MacPlatformTest, whatIsNoAddressOpensNothing) {
  Stage stage;
  stage.platform.openUrl("");
  EXPECT_EQ(stage.headless.opened, "");
  stage.platform.openUrl("https://tarnwell.example/help");
  EXPECT_EQ(stage.headless.opened, "https://tarnwell.example/help");
}

TEST(MacPlatformTest, theProgramIsStartedOnceMoreWhenItEnds) {
  Stage stage;
  stage.platform.terminate(*stage.application);
  EXPECT_THAT(stage.headless.journal.lines(), Not(Contains("startAgainAtEnd")));
  stage.platform.startAgainAtEnd();
  EXPECT_THAT(stage.headless.journal.lines(), Not(Contains("startAgainAtEnd")));
  stage.platform.terminate(*stage.application);
  EXPECT_THAT(stage.headless.journal.lines(), Contains("startAgainAtEnd"));
  EXPECT_TRUE(takeEnd());
}

}  // namespace
}  // namespace tarnwell::host_macos
