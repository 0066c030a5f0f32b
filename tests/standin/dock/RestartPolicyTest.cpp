#include "standin/dock/RestartPolicy.h"

#include <gtest/gtest.h>

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
  using How = system::ProcessEnd::How;
  for (const int status : {0, 1}) {
    EXPECT_EQ(endingOf({How::exited, status}), Ending::failed);
  }
  for (const int fault : {SIGSEGV, SIGABRT}) {
    EXPECT_EQ(endingOf({How::killed, fault}), Ending::failed);
  }
  for (const int signal : {SIGTERM, SIGKILL, SIGHUP}) {
    EXPECT_EQ(endingOf({How::killed, signal}), Ending::killed);
  }
  EXPECT_EQ(endingOf({}), Ending::failed);
}

}  // namespace
}  // namespace tarnwell::standin
