#include "host/headless/HeadlessPlatform.h"

#include <gtest/gtest.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include "kit/application/Application.h"

namespace tarnwell::host_headless {
namespace {

TEST(HeadlessPlatformTest, hearsOfADescriptorUntilItsWatchEnds) {
  HeadlessPlatform platform;
  const auto application = kit::Application::create(platform);
  const int counter = ::eventfd(0, EFD_CLOEXEC);
  ASSERT_GE(counter, 0);
  eventfd_t heard = 0;
  kit::Subscription watch = platform.watch(counter, [&] { ::eventfd_read(counter, &heard); });
  platform.runUntilIdle(*application);
  EXPECT_EQ(heard, 0U);
  ::eventfd_write(counter, 3);
  platform.runUntilIdle(*application);
  EXPECT_EQ(heard, 3U);
  watch.invalidate();
  ::eventfd_write(counter, 5);
  platform.runUntilIdle(*application);
  EXPECT_EQ(heard, 3U);
  ::close(counter);
}

}  // namespace
}  // namespace tarnwell::host_headless
