#include "system/processes/Process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <string>

#include "fixtures/Processes.h"
#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "fixtures/WaitFor.h"
#include "system/processes/Pipe.h"

namespace tarnwell::system {
namespace {

using How = ProcessEnd::How;

/// What a shell prints that is started with `launch`; its words are the text alone.
std::string outputOf(const std::string& text, Launch launch = {}) {
  Pipe pipe = Pipe::create();
  launch.words = {"sh", "-c", text};
  launch.output = pipe.writeEnd.number();
  auto process = Process::start(launch);
  pipe.writeEnd.close();
  const std::string output = pipe.readEnd.readAll().value_or("nothing");
  return process && process->wait().isSuccess() ? output : "failed";
}

TEST(ProcessTest, tellsHowItEnded) {
  const auto endOf = [](const std::string& text) { return Process::start({.words = {"sh", "-c", text}})->wait(); };
  EXPECT_TRUE(endOf("exit 0").isSuccess());
  const ProcessEnd exited = endOf("exit 3");
  EXPECT_EQ(exited.how, How::exited);
  EXPECT_EQ(exited.number, 3);
  const ProcessEnd killed = endOf("kill -TERM $$");
  EXPECT_EQ(killed.how, How::killed);
  EXPECT_EQ(killed.number, SIGTERM);
  EXPECT_FALSE(killed.isSuccess());
}

TEST(ProcessTest, saysWhyItDidNotStart) {
  const auto process = Process::start({.words = {"/nowhere/program"}});
  ASSERT_FALSE(process);
  EXPECT_EQ(process.error().message, "cannot start /nowhere/program: No such file or directory");
  EXPECT_EQ(process.error().error, ENOENT);
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "it is reaped";
}

TEST(ProcessTest, saysThatTheSystemHasNoRoomForIt) {
  const int status = fixtures::exitStatusOf([] {
    // Of root there may be any number.
    constexpr uid_t user = 65534;
    const bool isUser = ::geteuid() != 0 || ::setuid(user) == 0;
    const rlimit none = {.rlim_cur = 0, .rlim_max = 0};
    ::setrlimit(RLIMIT_NPROC, &none);
    const auto process = Process::start({.words = {"true"}});
    return isUser && !process && process.error().message.starts_with("cannot start true: ") &&
                   process.error().error == EAGAIN
               ? 0
               : 1;
  });
  EXPECT_EQ(status, 0);
}

TEST(ProcessTest, findsItsDescriptorsAndNoOthers) {
  const fixtures::Sandbox sandbox;
  sandbox.write("in", "input\n");
  sandbox.write("extra", "extra\n");
  const Descriptor input(::open((sandbox / "in").c_str(), O_RDONLY | O_CLOEXEC));
  const Descriptor extra(::open((sandbox / "extra").c_str(), O_RDONLY | O_CLOEXEC));
  const Descriptor inheritable(::open("/dev/zero", O_RDONLY));
  EXPECT_EQ(outputOf("cat; cat <&3", {.input = input.number(), .extra = extra.number()}), "input\nextra\n");
  // The last one is the folder that is being listed.
  EXPECT_EQ(outputOf("exec ls /dev/fd/", {.extra = extra.number()}), "0\n1\n2\n3\n4\n");
  EXPECT_EQ(outputOf("test /dev/stdin -ef /dev/null && exec ls /dev/fd/"), "0\n1\n2\n3\n");
}

TEST(ProcessTest, findsNothingThatWasLeftOpen) {
  const int status = fixtures::exitStatusOf([] {
    const Descriptor inheritable(::open("/dev/zero", O_RDONLY));
    const Descriptor extra(::open("/dev/null", O_RDONLY | O_CLOEXEC));
    // As from a library that forgot to say otherwise; the pipe comes later and has higher numbers.
    for (int number = STDERR_FILENO + 1; number < 10; ++number) {
      if (number != extra.number() && number != inheritable.number()) {
        ::dup2(inheritable.number(), number);
      }
    }
    const bool isRight = outputOf("exec ls /dev/fd/", {.extra = extra.number()}) == "0\n1\n2\n3\n4\n" &&
                         outputOf("exec ls /dev/fd/") == "0\n1\n2\n3\n";
    return isRight ? 0 : 1;
  });
  EXPECT_EQ(status, 0);
}

TEST(ProcessTest, isNotStartedWithADescriptorThatIsNone) {
  constexpr int none = 9999;
  for (const Launch& launch : {Launch{.words = {"true"}, .input = none}, Launch{.words = {"true"}, .output = none},
                               Launch{.words = {"true"}, .errors = none}, Launch{.words = {"true"}, .extra = none}}) {
    const auto process = Process::start(launch);
    ASSERT_FALSE(process);
    EXPECT_EQ(process.error().error, EBADF);
  }
}

TEST(ProcessTest, isOfOneOwnerAlone) {
  Process first(1'000'000);
  Process& left = first;
  Process second(-1);
  second = std::move(first);
  EXPECT_EQ(second.number(), 1'000'000);
  EXPECT_EQ(left.number(), -1);
}

TEST(ProcessTest, isWaitedForThroughAnInterruption) {
  const int status = fixtures::exitStatusOf([] {
    struct sigaction interrupts = {};
    interrupts.sa_handler = [](int) {};
    ::sigaction(SIGUSR1, &interrupts, nullptr);
    const pid_t waiting = ::getpid();
    const pid_t child = ::fork();
    if (child == 0) {
      const auto isWaiting = [waiting] { return fixtures::isAsleep(waiting); };
      const bool isInTime = fixtures::waitFor(isWaiting);
      ::kill(waiting, SIGUSR1);
      ::_exit(isInTime && fixtures::waitFor(isWaiting) ? 7 : 1);
    }
    return Process(child).wait().number;
  });
  EXPECT_EQ(status, 7);
}

TEST(ProcessTest, findsADescriptorThatHasTheRightNumberAlready) {
  const int status = fixtures::exitStatusOf([] {
    const Descriptor extra(::dup2(::open("/dev/null", O_RDONLY | O_CLOEXEC), STDERR_FILENO + 1));
    ::fcntl(extra.number(), F_SETFD, FD_CLOEXEC);
    return outputOf("test /dev/fd/3 -ef /dev/null && echo same", {.extra = extra.number()}) == "same\n" ? 0 : 1;
  });
  EXPECT_EQ(status, 0);
}

TEST(ProcessTest, startsWithTheSignalsThatAreAskedForWhateverOursAre) {
  const int status = fixtures::exitStatusOf([] {
    // Of all numbers there are, but that of the end of a child, of which something is to be told.
    for (int number = 1; number < NSIG; ++number) {
      std::signal(number, number == SIGCHLD ? SIG_DFL : SIG_IGN);
    }
    sigset_t blocked;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGUSR1);
    ::sigprocmask(SIG_BLOCK, &blocked, nullptr);
    const std::string text = fixtures::tellingSignals();
    sigset_t after;
    const bool isRight = outputOf(text) == "blocked\nignored\n" &&
                         outputOf(text, {.blockedSignals = {SIGTERM}}) == "blocked TERM\nignored\n";
    ::sigprocmask(SIG_BLOCK, nullptr, &after);
    return isRight && sigismember(&after, SIGUSR1) == 1 && sigismember(&after, SIGTERM) == 0 ? 0 : 1;
  });
  EXPECT_EQ(status, 0);
}

TEST(ProcessTest, hasTheEnvironmentThatItIsGiven) {
  EXPECT_EQ(
      outputOf("exec /usr/bin/env", {.environment = std::vector<std::string>{"A=1", "PATH=/nowhere"}}).find("A=1\n"),
      0U);
}

TEST(ProcessTest, hasASessionOfItsOwnWhereThatIsAskedFor) {
  for (const bool isOwn : {false, true}) {
    auto process = Process::start({.words = {"sleep", "1000"}, .hasOwnSession = isOwn});
    ASSERT_TRUE(process);
    EXPECT_EQ(::getsid(process->number()), isOwn ? process->number() : ::getsid(0));
    process->send(SIGKILL);
    process->wait();
  }
}

TEST(ProcessTest, isEndedWhenItsTimeIsUp) {
  const ProcessEnd end = Process::start({.words = {"sleep", "1000"}, .limit = std::chrono::seconds(1)})->wait();
  EXPECT_EQ(end.how, How::killed);
  EXPECT_EQ(end.number, SIGALRM);
}

TEST(ProcessTest, endsWithItsStarter) {
  Pipe pipe = Pipe::create();
  const pid_t starter = ::fork();
  if (starter == 0) {
    const auto process =
        Process::start({.words = {"sleep", "1000"}, .output = pipe.writeEnd.number(), .endsWithStarter = true});
    ::_exit(process ? 0 : 1);
  }
  pipe.writeEnd.close();
  EXPECT_TRUE(Process(starter).wait().isSuccess());
  // The pipe ends with the last process that has it.
  EXPECT_EQ(pipe.readEnd.readAll(), "");
}

TEST(ProcessTest, allOfItsSessionEndsWithItsStarter) {
  Pipe pipe = Pipe::create();
  const pid_t starter = ::fork();
  if (starter == 0) {
    ::setpgid(0, 0);
    Process::start({.words = {"sh", "-c", "sleep 1000 && sleep 1000"},
                    .output = pipe.writeEnd.number(),
                    .hasOwnSession = true,
                    .endsWithStarter = true});
    ::kill(0, SIGKILL);
  }
  pipe.writeEnd.close();
  EXPECT_EQ(Process(starter).wait().number, SIGKILL);
  EXPECT_EQ(pipe.readEnd.readAll(), "");
}

TEST(ProcessTest, itsEndCanBeWaitedForAtADescriptor) {
  auto process = Process::start({.words = {"sleep", "1000"}});
  ASSERT_TRUE(process);
  const Descriptor end = process->endDescriptor();
  EXPECT_FALSE(end.waitUntilReadable(std::chrono::steady_clock::now()));
  EXPECT_FALSE(process->end());
  process->send(SIGKILL);
  EXPECT_TRUE(end.waitUntilReadable(std::chrono::steady_clock::now() + std::chrono::minutes(1)));
  EXPECT_EQ(process->wait().number, SIGKILL);
  EXPECT_EQ(process->number(), -1);
}

TEST(ProcessTest, oneWhoseEndIsIgnoredEndsUnknown) {
  const int status = fixtures::exitStatusOf([] {
    std::signal(SIGCHLD, SIG_IGN);
    return Process::start({.words = {"true"}})->wait().how == How::unknown ? 0 : 1;
  });
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace tarnwell::system
