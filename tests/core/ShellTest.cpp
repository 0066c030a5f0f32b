#include "core/ShellTest.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include "fixtures/Processes.h"
#include "fixtures/WaitFor.h"

namespace tarnwell::core {
ShellTest::ShellTest() {
  ::mkfifo(path("gate").c_str(), 0600);
  // Open for both directions, so that neither side waits for the other to open it.
  gate_ = ::open(path("gate").c_str(), O_RDWR | O_CLOEXEC);
}

ShellTest::~ShellTest() { ::close(gate_); }

void ShellTest::TearDown() {
  EXPECT_TRUE(fixtures::waitFor([this] { return allReaped(); }));
}

void ShellTest::release() const { EXPECT_EQ(::write(gate_, "\n", 1), 1); }

bool ShellTest::allReaped() {
  runner.reap();
  return !fixtures::hasChildren();
}

bool ShellTest::isReadable() const {
  pollfd descriptor = {.fd = runner.descriptor(), .events = POLLIN, .revents = 0};
  return ::poll(&descriptor, 1, 0) == 1;
}

}  // namespace tarnwell::core
