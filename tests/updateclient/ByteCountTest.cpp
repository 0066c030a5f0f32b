#include "updateclient/ByteCount.h"

#include <gtest/gtest.h>

#include "host/linux/IcuNumberFormat.h"

namespace tarnwell::updateclient {
namespace {

TEST(ByteCountTest, theUnitSuitsTheNumber) {
  const host_linux::IcuNumberFormat format("en_US");
  EXPECT_EQ(byteCount(0, format), "0 bytes");
  EXPECT_EQ(byteCount(999, format), "999 bytes");
  EXPECT_EQ(byteCount(1000, format), "1 KB");
  EXPECT_EQ(byteCount(999'499, format), "999 KB");
  EXPECT_EQ(byteCount(3'240'000, format), "3.2 MB");
  EXPECT_EQ(byteCount(10'000'000, format), "10 MB");
  EXPECT_EQ(byteCount(1'250'000'000, format), "1.25 GB");
}

TEST(ByteCountTest, progressIsToldInTheUnitOfTheWhole) {
  const host_linux::IcuNumberFormat format("en_US");
  EXPECT_EQ(byteProgress(3'240'000, 10'000'000, format), "3.2 MB of 10 MB");
  EXPECT_EQ(byteProgress(20'000, 10'000'000, format), "0 MB of 10 MB");
  EXPECT_EQ(byteProgress(5, 700, format), "5 bytes of 700 bytes");
  EXPECT_EQ(byteProgress(3'240'000, 0, format), "3.2 MB");
}

TEST(ByteCountTest, numbersAreTheUsers) {
  EXPECT_EQ(byteProgress(3'240'000, 10'500'000, host_linux::IcuNumberFormat("de_DE")), "3,2 MB of 10,5 MB");
}

}  // namespace
}  // namespace tarnwell::updateclient
