#include "updateclient/engine/Watch.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>

#include "host/headless/HeadlessPlatform.h"
#include "kit/application/Application.h"

namespace tarnwell::updateclient {
namespace {

TEST(WatchTest, whatADescriptorAnnouncesIsAnEventOfTheApplication) {
  std::array<int, 2> pipe = {};
  ASSERT_EQ(::pipe(pipe.data()), 0);
  host_headless::HeadlessPlatform platform;
  const auto application = kit::Application::create(platform);
  int events = 0;
  kit::Subscription watching = watchOf(*application)(pipe[0], [&] {
    events += application->turn().isPerforming() ? 1 : 0;
    watching = {};
  });
  platform.runUntilIdle(*application);
  EXPECT_EQ(events, 0);
  ASSERT_EQ(::write(pipe[1], "x", 1), 1);
  platform.runUntilIdle(*application);
  EXPECT_EQ(events, 1);
}

}  // namespace
}  // namespace tarnwell::updateclient
