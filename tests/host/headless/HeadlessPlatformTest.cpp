#include "host/headless/HeadlessPlatform.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <string>

#include "kit/application/Application.h"

namespace tarnwell::host_headless {
namespace {

TEST(HeadlessPlatformTest, hearsOfADescriptorUntilItsWatchEnds) {
  HeadlessPlatform platform;
  const auto application = kit::Application::create(platform);
  std::array<int, 2> ends = {};
  ASSERT_EQ(::pipe(ends.data()), 0);
  std::string heard;
  kit::Subscription watch = platform.watch(ends[0], [&] {
    std::array<char, 16> bytes = {};
    heard.append(bytes.data(), static_cast<std::size_t>(::read(ends[0], bytes.data(), bytes.size())));
  });
  platform.runUntilIdle(*application);
  EXPECT_EQ(heard, "");
  EXPECT_EQ(::write(ends[1], "one", 3), 3);
  platform.runUntilIdle(*application);
  EXPECT_EQ(heard, "one");
  watch.invalidate();
  EXPECT_EQ(::write(ends[1], "two", 3), 3);
  platform.runUntilIdle(*application);
  EXPECT_EQ(heard, "one");
  ::close(ends[0]);
  ::close(ends[1]);
}

}  // namespace
}  // namespace tarnwell::host_headless
