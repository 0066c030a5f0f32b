#include "host/macos/system/DescriptorWatch.h"

#include <gtest/gtest.h>

#include "host/macos/Toolkit.h"
#include "system/processes/Pipe.h"

namespace tarnwell::host_macos {
namespace {

/// A pipe with something in it.
struct FullPipe {
  FullPipe() {
    startToolkit();
    pipe.writeEnd.writeAll("x");
  }

  system::Pipe pipe = system::Pipe::create();
  int told = 0;
};

TEST(DescriptorWatchTest, whatCanBeReadIsToldUntilTheWatchEnds) {
  FullPipe full;
  kit::Subscription watch = watchDescriptor(full.pipe.readEnd.number(), [&full] { ++full.told; });
  EXPECT_TRUE(becomes([&full] { return full.told > 1; }));
  watch = {};
  const int before = full.told;
  settle();
  EXPECT_EQ(full.told, before);
}

TEST(DescriptorWatchTest, whatIsToldMayEndTheWatch) {
  FullPipe full;
  kit::Subscription watch;
  watch = watchDescriptor(full.pipe.readEnd.number(), [&full, &watch] {
    ++full.told;
    watch = {};
  });
  EXPECT_TRUE(becomes([&full] { return full.told > 0; }));
  settle();
  EXPECT_EQ(full.told, 1);
}

}  // namespace
}  // namespace tarnwell::host_macos
