#include "standin/dock/RestartPolicy.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <csignal>

namespace tarnwell::standin {
namespace {

using std::chrono::milliseconds;

TEST(RestartPolicyTest, failuresAtTheStartDoubleTheWaitUpToTenSeconds) {
  RestartPolicy policy;
  for (const int expected : {100, 200, 400, 800, 1600, 3200, 6400, 10000, 10000}) {
    EXPECT_EQ(policy.delayAfter(Ending::failed, milliseconds(5)), milliseconds(expected));
  }
}

TEST(RestartPolicyTest, killsNeverMakeItWait) {
  RestartPolicy policy;
  for (int i = 0; i < 7; ++i) {
    EXPECT_EQ(policy.delayAfter(Ending::killed, milliseconds(5)), milliseconds(0));
  }
}

TEST(RestartPolicyTest, aKillOrALongLifeForgetsTheFailures) {
  RestartPolicy policy;
  policy.delayAfter(Ending::failed, milliseconds(5));
  EXPECT_EQ(policy.delayAfter(Ending::failed, milliseconds(1000)), milliseconds(0));
  EXPECT_EQ(policy.delayAfter(Ending::failed, milliseconds(5)), milliseconds(100));
  EXPECT_EQ(policy.delayAfter(Ending::killed, milliseconds(5)), milliseconds(0));
  EXPECT_EQ(policy.delayAfter(Ending::failed, milliseconds(5)), milliseconds(100));
}

TEST(RestartPolicyTest, aFaultCountsAsAFailureAndAKillDoesNot) {
  for (const int status : {W_EXITCODE(0, 0), W_EXITCODE(1, 0), W_EXITCODE(0, SIGSEGV), W_EXITCODE(0, SIGABRT)}) {
    EXPECT_EQ(endingOf(status), Ending::failed);
  }
  for (const int status : {W_EXITCODE(0, SIGTERM), W_EXITCODE(0, SIGKILL), W_EXITCODE(0, SIGHUP)}) {
    EXPECT_EQ(endingOf(status), Ending::killed);
  }
}

}  // namespace
}  // namespace tarnwell::standin
