#include "host/linux/start/SessionBusAnswers.h"

#include <gtest/gtest.h>

#include <chrono>

#include "fixtures/EnvironmentScope.h"
#include "host/qt/bus/PrivateBus.h"

namespace tarnwell::host_linux {
namespace {

using Clock = std::chrono::steady_clock;

TEST(SessionBusAnswersTest, aBusThatTakesInANewProgramDoes) {
  const host_qt::PrivateBus bus;
  EXPECT_TRUE(sessionBusAnswers());
}

TEST(SessionBusAnswersTest, aBusThatIsNotThereDoesNot) {
  const fixtures::EnvironmentScope address("DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null/nowhere");
  EXPECT_FALSE(sessionBusAnswers());
}

TEST(SessionBusAnswersTest, aBusThatIsStuckIsWaitedForTwoSeconds) {
  const host_qt::PrivateBus bus;
  bus.freeze();
  const auto begin = Clock::now();
  EXPECT_FALSE(sessionBusAnswers());
  EXPECT_GE(Clock::now() - begin, std::chrono::seconds(2));
}

}  // namespace
}  // namespace tarnwell::host_linux
