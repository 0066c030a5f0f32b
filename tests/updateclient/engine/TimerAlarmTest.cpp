#include "updateclient/engine/TimerAlarm.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>

#include "fixtures/EventLoop.h"

namespace tarnwell::updateclient {
namespace {

using std::chrono::hours;
using std::chrono::milliseconds;

class TimerAlarmTest : public testing::Test {
 protected:
  bool goesOff() {
    return loop.runUntil([this] { return calls > 0; });
  }
  /// Whether nothing happens now.
  bool isSilent() {
    const int before = calls;
    loop.turn();
    return calls == before;
  }

  fixtures::EventLoop loop;
  std::unique_ptr<TimerAlarm> alarm = std::make_unique<TimerAlarm>(loop.watch());
  kit::Action count = [this] { ++calls; };
  int calls = 0;
};

TEST_F(TimerAlarmTest, goesOffOnceWhenTheTimeHasCome) {
  const auto time = alarm->now() + milliseconds(30);
  alarm->set(time, count);
  EXPECT_TRUE(goesOff());
  EXPECT_GE(alarm->now(), time);
  EXPECT_TRUE(isSilent());
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
  EXPECT_TRUE(isSilent());
}

TEST_F(TimerAlarmTest, theLastOneSetCounts) {
  alarm->set(alarm->now() - hours(1), [] { ADD_FAILURE(); });
  alarm->set(alarm->now() - hours(1), count);
  EXPECT_TRUE(goesOff());
  alarm->set(alarm->now() - hours(1), [] { ADD_FAILURE(); });
  alarm->set(alarm->now() + hours(1), [] { ADD_FAILURE(); });
  EXPECT_TRUE(isSilent());
}

TEST_F(TimerAlarmTest, aCancelledOneStaysSilent) {
  alarm->set(alarm->now() - hours(1), count);
  alarm->cancel();
  EXPECT_TRUE(isSilent());
}

TEST_F(TimerAlarmTest, maySetOrEndItselfWhenItGoesOff) {
  alarm->set(alarm->now(), [this] {
    alarm->set(alarm->now(), [this] {
      alarm.reset();
      ++calls;
    });
  });
  EXPECT_TRUE(loop.runUntil([this] { return !alarm; }));
  EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace tarnwell::updateclient
