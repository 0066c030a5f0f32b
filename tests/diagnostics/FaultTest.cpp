#include "diagnostics/Fault.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>

namespace tarnwell::diagnostics {
namespace {

TEST(FaultDeathTest, printsOneLineAndAborts) {
  EXPECT_EXIT(fault("the sky fell"), testing::KilledBySignal(SIGABRT), "^tarnwell: the sky fell\n$");
}

TEST(FaultDeathTest, abortsWithoutAStandardErrorToo) {
  const auto closeAndFault = [] {
    ::close(STDERR_FILENO);
    fault("the sky fell");
  };
  EXPECT_EXIT(closeAndFault(), testing::KilledBySignal(SIGABRT), "^$");
}

}  // namespace
}  // namespace tarnwell::diagnostics
