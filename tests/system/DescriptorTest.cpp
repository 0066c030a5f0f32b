#include "system/Descriptor.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <utility>

#include "fixtures/Subprocess.h"

namespace tarnwell::system {
namespace {

bool isOpen(int number) { return ::fcntl(number, F_GETFD) >= 0; }

int openSomething() { return ::open("/dev/null", O_RDONLY | O_CLOEXEC); }

TEST(DescriptorTest, aDescriptorIsClosedWithItsOwner) {
  int number = -1;
  {
    const Descriptor descriptor(openSomething());
    number = descriptor.number();
    EXPECT_TRUE(isOpen(number));
  }
  EXPECT_FALSE(isOpen(number));
}

TEST(DescriptorTest, movingHandsTheNumberOver) {
  Descriptor first(openSomething());
  const int number = first.number();
  Descriptor second(openSomething());
  const int replaced = second.number();
  second = std::move(first);
  EXPECT_EQ(second.number(), number);
  EXPECT_TRUE(isOpen(number));
  EXPECT_FALSE(isOpen(replaced));
}

TEST(DescriptorTest, closingEmptiesIt) {
  Descriptor descriptor(openSomething());
  const int number = descriptor.number();
  descriptor.close();
  descriptor.close();
  EXPECT_TRUE(descriptor.isEmpty());
  EXPECT_FALSE(isOpen(number));
  EXPECT_TRUE(Descriptor().isEmpty());
}

TEST(DescriptorTest, aNumberAboveTheStandardStreamsStays) {
  Descriptor descriptor(openSomething());
  const int number = descriptor.number();
  EXPECT_EQ(aboveStandardStreams(std::move(descriptor)).number(), number);
}

TEST(DescriptorTest, aStandardStreamsNumberIsMovedUpAndClosedOnExec) {
  const auto body = [] {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
      ::close(stream);
    }
    Descriptor low(openSomething());
    if (low.number() != STDIN_FILENO) {
      return 1;
    }
    const Descriptor high = aboveStandardStreams(std::move(low));
    if (high.number() <= STDERR_FILENO || isOpen(STDIN_FILENO)) {
      return 2;
    }
    return ::fcntl(high.number(), F_GETFD) == FD_CLOEXEC ? 0 : 3;
  };
  EXPECT_EQ(fixtures::exitStatusOf(body), 0);
}

}  // namespace
}  // namespace tarnwell::system
