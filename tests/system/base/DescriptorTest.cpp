#include "system/base/Descriptor.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <string>
#include <utility>

#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "system/processes/Pipe.h"
#include "system/processes/Process.h"

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
  Descriptor& same = second;
  second = std::move(same);
  EXPECT_EQ(second.number(), number);
  EXPECT_TRUE(isOpen(number));
}

TEST(DescriptorTest, closingEmptiesIt) {
  Descriptor descriptor(openSomething());
  const int number = descriptor.number();
  EXPECT_TRUE(descriptor.close());
  EXPECT_TRUE(descriptor.close());
  EXPECT_FALSE(descriptor);
  EXPECT_EQ(descriptor.number(), -1);
  EXPECT_FALSE(isOpen(number));
  EXPECT_FALSE(Descriptor());
}

TEST(DescriptorTest, writesAndReadsWhatIsLongerThanOneBlock) {
  const fixtures::Sandbox sandbox;
  const std::string text(1'000'000, 'a');
  const Descriptor file(::open((sandbox / "file").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
  EXPECT_TRUE(file.writeAll(text));
  EXPECT_EQ(sandbox.read("file"), text);
  EXPECT_EQ(file.readAll(), "");
  ::lseek(file.number(), 0, SEEK_SET);
  EXPECT_EQ(file.readAll(), text);
}

TEST(DescriptorTest, readsNoMoreThanShowsThatThereIsMore) {
  const fixtures::Sandbox sandbox;
  sandbox.write("file", "text");
  for (const std::size_t most : {0U, 2U, 3U, 4U, 9U}) {
    const Descriptor file(::open((sandbox / "file").c_str(), O_RDONLY | O_CLOEXEC));
    EXPECT_EQ(file.readAll(most), std::string("text").substr(0, most + 1));
  }
}

TEST(DescriptorTest, tellsOfWhatCannotBeWrittenOrRead) {
  const fixtures::Sandbox sandbox;
  const int status = fixtures::exitStatusOf([&sandbox] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit room = {.rlim_cur = 3, .rlim_max = 3};
    ::setrlimit(RLIMIT_FSIZE, &room);
    const Descriptor full(::open((sandbox / "file").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    const bool isRefused = !full.writeAll("text") && errno == EFBIG;
    return isRefused && !full.readAll() && errno == EBADF ? 0 : 1;
  });
  EXPECT_EQ(status, 0);
}

TEST(DescriptorTest, tellsOfWhatCannotBeCopied) {
  const fixtures::Sandbox sandbox;
  sandbox.write("from", "text");
  const int status = fixtures::exitStatusOf([&sandbox] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit room = {.rlim_cur = 3, .rlim_max = 3};
    ::setrlimit(RLIMIT_FSIZE, &room);
    const Descriptor from(::open((sandbox / "from").c_str(), O_RDONLY | O_CLOEXEC));
    const Descriptor to(::open((sandbox / "to").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    const bool isFull = !to.copyFrom(from.number()) && errno == EFBIG;
    return isFull && !to.copyFrom(-1) && errno == EBADF ? 0 : 1;
  });
  EXPECT_EQ(status, 0);
}

TEST(DescriptorTest, goesOnAfterAnInterruption) {
  const int status = fixtures::exitStatusOf([] {
    struct sigaction interrupts = {};
    interrupts.sa_handler = [](int) {};
    ::sigaction(SIGUSR1, &interrupts, nullptr);
    const auto interruptedPipe = [] {
      Pipe pipe = Pipe::create();
      (void)Process::start({.words = {"sh", "-c", "kill -USR1 $PPID; echo text"}, .output = pipe.writeEnd.number()});
      return std::move(pipe.readEnd);
    };
    const Descriptor waited = interruptedPipe();
    const bool isReadable = waited.waitUntilReadable(std::chrono::steady_clock::now() + std::chrono::minutes(1));
    return isReadable && waited.readPart() == "text\n" && interruptedPipe().readAll() == "text\n" ? 0 : 1;
  });
  EXPECT_EQ(status, 0);
}

TEST(DescriptorTest, anInterruptionThatIsOverIsNone) {
  const Descriptor empty(openSomething());
  errno = EINTR;
  EXPECT_EQ(empty.readAll(), "");
  const Pipe quiet = Pipe::create();
  errno = EINTR;
  EXPECT_FALSE(quiet.readEnd.waitUntilReadable(std::chrono::steady_clock::now()));
}

TEST(DescriptorTest, copiesAFileFromItsStart) {
  const fixtures::Sandbox sandbox;
  const std::string text(1'000'000, 'b');
  sandbox.write("from", text);
  const Descriptor from(::open((sandbox / "from").c_str(), O_RDONLY | O_CLOEXEC));
  ::lseek(from.number(), 0, SEEK_END);
  const Descriptor to(::open((sandbox / "to").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
  EXPECT_TRUE(to.copyFrom(from.number()));
  EXPECT_EQ(sandbox.read("to"), text);
}

TEST(DescriptorTest, aNumberAboveTheStandardStreamsStays) {
  Descriptor descriptor(openSomething());
  const int number = descriptor.number();
  EXPECT_EQ(aboveStandardStreams(std::move(descriptor)).number(), number);
}

TEST(DescriptorTest, aStandardStreamsNumberIsMovedUpAndClosedOnExec) {
  const auto body = [] {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
      ::close(STDERR_FILENO + 1);
      ::dup2(Descriptor(openSomething()).number(), stream);
      const Descriptor high = aboveStandardStreams(Descriptor(stream));
      if (high.number() != STDERR_FILENO + 1 || isOpen(stream) || ::fcntl(high.number(), F_GETFD) != FD_CLOEXEC) {
        return 1;
      }
    }
    return 0;
  };
  EXPECT_EQ(fixtures::exitStatusOf(body), 0);
}

}  // namespace
}  // namespace tarnwell::system
