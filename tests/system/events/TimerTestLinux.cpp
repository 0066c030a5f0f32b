#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <cerrno>
#include <chrono>

#include "fixtures/Subprocess.h"
#include "system/FilterLinux.h"
#include "system/events/Timer.h"

namespace tarnwell::system {
namespace {

using namespace std::chrono_literals;

/// Asks a timer of an hour whether it is due, after these calls have been answered so from then on.
int statusOf(unsigned readError, unsigned setError) {
  return fixtures::exitStatusOf([&] {
    Timer timer;
    timer.set(Timer::Clock::now() + 1h);
    refuse(__NR_read, readError);
    refuse(__NR_timerfd_settime, setError);
    return timer.isDue() ? 1 : 0;
  });
}

TEST(TimerTest, isSetAnewWhenTheClockWasSetBeforeItsTime) {
  EXPECT_EQ(statusOf(ECANCELED, ECANCELED), 0);
  EXPECT_EQ(statusOf(ECANCELED, EIO), -1) << "it cannot be set anew";
  EXPECT_EQ(statusOf(EAGAIN, EIO), 0) << "it is left as it is";
}

TEST(TimerTest, oneThatCannotBeSetIsAFault) {
  EXPECT_DEATH(
      {
        Timer timer;
        refuse(__NR_timerfd_settime);
        timer.set(Timer::Clock::now());
      },
      "^tarnwell: cannot set a timer: Input/output error\n$");
}

}  // namespace
}  // namespace tarnwell::system
