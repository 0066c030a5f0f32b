#include "updater/schedule/TimerAlarm.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>

#include <chrono>
#include <memory>

#include "fixtures/WaitFor.h"

namespace tarnwell::updater {
namespace {

using std::chrono::hours;
using std::chrono::milliseconds;

class TimerAlarmTest : public testing::Test {
 protected:
  bool isReadable() const {
    pollfd ready = {.fd = alarm->descriptor(), .events = POLLIN, .revents = 0};
    return ::poll(&ready, 1, 0) > 0;
  }

  bool goesOff() {
    return fixtures::waitFor([this] {
      if (isReadable()) {
        alarm->dispatch();
      }
      return calls > 0;
    });
  }

  std::unique_ptr<TimerAlarm> alarm = std::make_unique<TimerAlarm>();
  kit::Action count = [this] { ++calls; };
  int calls = 0;
};

TEST_F(TimerAlarmTest, goesOffOnceWhenTheTimeHasCome) {
  const auto time = alarm->now() + milliseconds(30);
  alarm->set(time, count);
  EXPECT_TRUE(goesOff());
  EXPECT_GE(alarm->now(), time);
  alarm->dispatch();
  EXPECT_EQ(calls, 1);
  EXPECT_FALSE(isReadable());
}

TEST_F(TimerAlarmTest, aTimeInThePastGoesOffFromTheLoop) {
  for (const auto time : {alarm->now() - hours(1), Alarm::Clock::time_point(), Alarm::Clock::time_point(hours(-1))}) {
    calls = 0;
    alarm->set(time, count);
    EXPECT_EQ(calls, 0);
    EXPECT_TRUE(goesOff());
  }
}

TEST_F(TimerAlarmTest, isSilentBeforeItsTime) {
  alarm->set(alarm->now() + hours(24 * 365 * 50), count);
  EXPECT_FALSE(isReadable());
  alarm->dispatch();
  EXPECT_EQ(calls, 0);
}

TEST_F(TimerAlarmTest, theLastOneSetCounts) {
  alarm->set(alarm->now() - hours(1), [] { ADD_FAILURE(); });
  alarm->set(alarm->now() - hours(1), count);
  EXPECT_TRUE(goesOff());
  alarm->set(alarm->now() - hours(1), [] { ADD_FAILURE(); });
  alarm->set(alarm->now() + hours(1), [] { ADD_FAILURE(); });
  EXPECT_FALSE(isReadable());
}

TEST_F(TimerAlarmTest, aCancelledOneStaysSilent) {
  alarm->set(alarm->now() - hours(1), count);
  alarm->cancel();
  EXPECT_FALSE(isReadable());
  alarm->dispatch();
  EXPECT_EQ(calls, 0);
}

TEST_F(TimerAlarmTest, maySetOrEndItselfWhenItGoesOff) {
  alarm->set(alarm->now(), [this] {
    alarm->set(alarm->now(), [this] {
      alarm.reset();
      ++calls;
    });
  });
  EXPECT_TRUE(fixtures::waitFor([this] {
    if (isReadable()) {
      alarm->dispatch();
    }
    return !alarm;
  }));
  EXPECT_EQ(calls, 1);
}

TEST_F(TimerAlarmTest, itsTimerIsClosedInChildren) { EXPECT_NE(::fcntl(alarm->descriptor(), F_GETFD) & FD_CLOEXEC, 0); }

}  // namespace
}  // namespace tarnwell::updater
