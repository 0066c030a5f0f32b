#include "system/events/DescriptorSet.h"

#include <gtest/gtest.h>

#include <chrono>
#include <vector>

#include "system/processes/Pipe.h"

namespace tarnwell::system {
namespace {

bool isReadable(const DescriptorSet& set) {
  return set.descriptor().waitUntilReadable(std::chrono::steady_clock::now());
}

TEST(DescriptorSetTest, tellsWhichCanBeRead) {
  const DescriptorSet set("watch pipes");
  const Pipe quiet = Pipe::create();
  const Pipe spoken = Pipe::create();
  ASSERT_TRUE(set.add(quiet.readEnd.number()));
  ASSERT_TRUE(set.add(spoken.readEnd.number()));
  EXPECT_FALSE(isReadable(set));
  EXPECT_TRUE(spoken.writeEnd.writeAll("word"));
  EXPECT_TRUE(isReadable(set));
  for (int count = 0; count < 2; ++count) {
    EXPECT_EQ(set.readable(9), std::vector{spoken.readEnd.number()}) << "until it is read";
  }
}

TEST(DescriptorSetTest, tellsNoMoreThanItIsAskedFor) {
  const DescriptorSet set("watch pipes");
  std::vector<Pipe> pipes(3);
  for (Pipe& pipe : pipes) {
    pipe = Pipe::create();
    ASSERT_TRUE(set.add(pipe.readEnd.number()));
    pipe.writeEnd.close();
  }
  EXPECT_EQ(set.readable(2).size(), 2U);
  EXPECT_EQ(set.readable(9).size(), 3U);
}

TEST(DescriptorSetTest, forgetsWhatIsRemoved) {
  const DescriptorSet set("watch pipes");
  const Pipe pipe = Pipe::create();
  ASSERT_TRUE(set.add(pipe.readEnd.number()));
  EXPECT_TRUE(pipe.writeEnd.writeAll("word"));
  set.remove(pipe.readEnd.number());
  EXPECT_FALSE(isReadable(set));
  EXPECT_TRUE(set.readable(9).empty());
}

TEST(DescriptorSetTest, doesNotWaitForWhatCannotBeRead) {
  const DescriptorSet set("watch pipes");
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  for (int count = 0; count < 10'000; ++count) {
    EXPECT_TRUE(set.readable(1).empty());
  }
  EXPECT_LT(std::chrono::steady_clock::now(), end);
}

TEST(DescriptorSetTest, saysWhatItCannotWatch) {
  const DescriptorSet set("watch pipes");
  EXPECT_FALSE(set.add(-1));
}

}  // namespace
}  // namespace tarnwell::system
