#include "system/events/Timer.h"

#include <gtest/gtest.h>
#include <poll.h>

namespace tarnwell::system {
namespace {

using namespace std::chrono_literals;

/// Whether the timer has something to say by now, or within a minute.
bool speaks(const Timer& timer, std::chrono::milliseconds patience = 0ms) {
  pollfd state = {.fd = timer.descriptor(), .events = POLLIN, .revents = 0};
  return ::poll(&state, 1, static_cast<int>(patience.count())) > 0;
}

TEST(TimerTest, goesOffOnceWhenItsTimeHasCome) {
  Timer timer;
  const auto time = Timer::Clock::now() + 50ms;
  timer.set(time);
  EXPECT_TRUE(speaks(timer, 1min));
  EXPECT_GE(Timer::Clock::now(), time);
  EXPECT_TRUE(timer.isDue());
  EXPECT_FALSE(speaks(timer));
  EXPECT_FALSE(timer.isDue());
}

TEST(TimerTest, aTimeThatHasPassedCountsAsNow) {
  for (const auto time : {Timer::Clock::now() - 1h, Timer::Clock::time_point(), Timer::Clock::time_point(-1h)}) {
    Timer timer;
    timer.set(time);
    EXPECT_TRUE(speaks(timer, 1min));
    EXPECT_TRUE(timer.isDue());
  }
}

TEST(TimerTest, aTimeToComeReplacesOneThatHasPassed) {
  Timer timer;
  timer.set(Timer::Clock::now() - 1h);
  timer.set(Timer::Clock::now() + 1h);
  EXPECT_FALSE(speaks(timer));
  EXPECT_FALSE(timer.isDue());
}

TEST(TimerTest, isSilentOnceItIsCancelled) {
  Timer timer;
  timer.set(Timer::Clock::now() - 1h);
  timer.cancel();
  EXPECT_FALSE(speaks(timer));
  EXPECT_FALSE(timer.isDue());
}

}  // namespace
}  // namespace tarnwell::system
