#include "diagnostics/Console.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <future>
#include <string>

#include "fixtures/Subprocess.h"
#include "fixtures/WaitFor.h"

namespace tarnwell::diagnostics {
namespace {

using fixtures::exitStatusOf;

/// To read from and to write to.
using Ends = std::array<int, 2>;

Ends pipe() {
  Ends ends{};
  EXPECT_EQ(::pipe(ends.data()), 0);
  return ends;
}

/// Keeps each write as a packet of its own. Nothing waits for one.
Ends packets() {
  Ends ends{};
  EXPECT_EQ(::socketpair(AF_UNIX, SOCK_DGRAM, 0, ends.data()), 0);
  const int room = 65536;
  for (const int end : ends) {
    ::setsockopt(end, SOL_SOCKET, SO_SNDBUF, &room, sizeof room);
    ::setsockopt(end, SOL_SOCKET, SO_RCVBUF, &room, sizeof room);
  }
  ::fcntl(ends[0], F_SETFL, O_NONBLOCK);
  return ends;
}

/// What is printed to a standard stream.
class Printed {
 public:
  Printed(int stream, Ends ends) : stream_(stream), previous_(::dup(stream)), readEnd_(ends[0]) {
    ::dup2(ends[1], stream_);
    ::close(ends[1]);
  }
  Printed(const Printed&) = delete;
  Printed& operator=(const Printed&) = delete;
  ~Printed() {
    restoreStream();
    ::close(readEnd_);
  }

  void restoreStream() {
    if (previous_ >= 0) {
      ::dup2(previous_, stream_);
      ::close(previous_);
      previous_ = -1;
    }
  }

  // The next piece; empty once there is none to come.
  std::string read() const {
    std::string packet(8192, '\0');
    const ssize_t size = ::read(readEnd_, packet.data(), packet.size());
    packet.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
    return packet;
  }

 private:
  int stream_;
  int previous_;
  int readEnd_;
};

TEST(ConsoleTest, aLineReachesAPipeAtOnceAndInOnePiece) {
  for (const std::string& line : {std::string("0.2"), std::string(), std::string(4000, 'x'), std::string("a\nb")}) {
    Printed printed(STDOUT_FILENO, packets());
    printLine(line);
    const std::string first = printed.read();
    printed.restoreStream();
    EXPECT_EQ(first, line + "\n");
    EXPECT_EQ(printed.read(), "") << "more than one write";
  }
}

TEST(ConsoleTest, anErrorLineGoesToStandardErrorInOnePiece) {
  Printed printed(STDERR_FILENO, packets());
  printErrorLine("trouble");
  const std::string first = printed.read();
  printed.restoreStream();
  EXPECT_EQ(first, "trouble\n");
  EXPECT_EQ(printed.read(), "");
}

TEST(ConsoleTest, aLineThatIsLongerThanAPipeArrivesWhole) {
  Printed printed(STDOUT_FILENO, pipe());
  auto received = std::async(std::launch::async, [&printed] {
    std::string text;
    for (std::string packet = printed.read(); !packet.empty(); packet = printed.read()) {
      text += packet;
    }
    return text;
  });
  const std::string line(1000000, 'x');
  EXPECT_TRUE(print(line));
  printed.restoreStream();
  EXPECT_EQ(received.get(), line);
}

Ends interrupted = {};
volatile std::sig_atomic_t signals = 0;
volatile std::size_t drained = 0;

/// Reads what is in the pipe only after the call that waits for room was interrupted a few times.
void interrupt(int /*signal*/) {
  signals = signals + 1;
  std::array<char, 65536> bytes = {};
  const ssize_t count = signals > 3 ? ::read(interrupted[0], bytes.data(), bytes.size()) : 0;
  drained = drained + static_cast<std::size_t>(std::max<ssize_t>(count, 0));
}

/// By a handler that does not have calls begun again.
void interruptAllTheTime() {
  struct sigaction action = {};
  action.sa_handler = &interrupt;
  ::sigaction(SIGALRM, &action, nullptr);
  const itimerval often = {.it_interval = {.tv_sec = 0, .tv_usec = 1000}, .it_value = {.tv_sec = 0, .tv_usec = 1000}};
  ::setitimer(ITIMER_REAL, &often, nullptr);
}

TEST(ConsoleTest, aTextArrivesWholeThoughSignalsInterruptIt) {
  const int status = exitStatusOf([] {
    interrupted = pipe();
    ::fcntl(interrupted[0], F_SETFL, O_NONBLOCK);
    ::dup2(interrupted[1], STDOUT_FILENO);
    interruptAllTheTime();
    const bool isPrinted = print(std::string(200'000, 'x'));
    return isPrinted && fixtures::waitFor([] { return drained == 200'000; }) ? 0 : 1;
  });
  EXPECT_EQ(status, 0);
}

TEST(ConsoleTest, aClosedStandardOutputSwallowsTheLineAndIsSaid) {
  const auto body = [] {
    ::close(STDOUT_FILENO);
    printLine("unread");
    return !print("unread") && errno == EBADF ? 0 : 1;
  };
  EXPECT_EQ(exitStatusOf(body), 0);
}

TEST(ConsoleTest, aBrokenPipeSwallowsTheLineWhereItsSignalIsIgnored) {
  const auto body = [] {
    (void)std::signal(SIGPIPE, SIG_IGN);
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) {
      return 1;
    }
    ::close(ends[0]);
    ::dup2(ends[1], STDOUT_FILENO);
    printLine("unread");
    printLine(std::string(1000000, 'x'));
    return 0;
  };
  EXPECT_EQ(exitStatusOf(body), 0);
}

}  // namespace
}  // namespace tarnwell::diagnostics
