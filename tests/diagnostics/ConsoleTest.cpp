#include "diagnostics/Console.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <future>
#include <string>

#include "fixtures/Subprocess.h"

namespace tarnwell::diagnostics {
namespace {

using fixtures::exitStatusOf;

// In the place of a standard stream, a pipe that keeps each write as a packet of its own.
class PacketPipe {
 public:
  explicit PacketPipe(int stream) : stream_(stream), previous_(::dup(stream)) {
    std::array<int, 2> ends{};
    EXPECT_EQ(::pipe2(ends.data(), O_DIRECT | O_CLOEXEC), 0);
    readEnd_ = ends[0];
    ::dup2(ends[1], stream_);
    ::close(ends[1]);
  }
  PacketPipe(const PacketPipe&) = delete;
  PacketPipe& operator=(const PacketPipe&) = delete;
  ~PacketPipe() {
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

  // The next packet; empty once there is no writer.
  std::string read() const {
    std::string packet(8192, '\0');
    const ssize_t size = ::read(readEnd_, packet.data(), packet.size());
    packet.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
    return packet;
  }

 private:
  int stream_;
  int previous_;
  int readEnd_ = -1;
};

TEST(ConsoleTest, aLineReachesAPipeAtOnceAndInOnePiece) {
  for (const std::string& line : {std::string("0.2"), std::string(), std::string(4000, 'x'), std::string("a\nb")}) {
    PacketPipe pipe(STDOUT_FILENO);
    printLine(line);
    const std::string first = pipe.read();
    pipe.restoreStream();
    EXPECT_EQ(first, line + "\n");
    EXPECT_EQ(pipe.read(), "") << "more than one write";
  }
}

TEST(ConsoleTest, anErrorLineGoesToStandardErrorInOnePiece) {
  PacketPipe pipe(STDERR_FILENO);
  printErrorLine("trouble");
  const std::string first = pipe.read();
  pipe.restoreStream();
  EXPECT_EQ(first, "trouble\n");
  EXPECT_EQ(pipe.read(), "");
}

TEST(ConsoleTest, aLineThatIsLongerThanAPipeArrivesWhole) {
  PacketPipe pipe(STDOUT_FILENO);
  auto received = std::async(std::launch::async, [&pipe] {
    std::string text;
    for (std::string packet = pipe.read(); !packet.empty(); packet = pipe.read()) {
      text += packet;
    }
    return text;
  });
  const std::string line(1000000, 'x');
  printLine(line);
  pipe.restoreStream();
  EXPECT_EQ(received.get(), line + "\n");
}

TEST(ConsoleTest, aClosedStandardOutputSwallowsTheLine) {
  const auto body = [] {
    ::close(STDOUT_FILENO);
    printLine("unread");
    return 0;
  };
  EXPECT_EQ(exitStatusOf(body), 0);
}

TEST(ConsoleTest, aBrokenPipeSwallowsTheLineWhereItsSignalIsIgnored) {
  const auto body = [] {
    (void)std::signal(SIGPIPE, SIG_IGN);
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
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
