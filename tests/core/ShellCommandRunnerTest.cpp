#include "core/ShellCommandRunner.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <unistd.h>

#include <csignal>
#include <string>

#include "core/ShellTest.h"
#include "fixtures/Processes.h"
#include "fixtures/Subprocess.h"
#include "fixtures/WaitFor.h"

namespace tarnwell::core {
namespace {

using fixtures::exitStatusOf;
using fixtures::hasChildren;
using fixtures::waitFor;

class ShellCommandRunnerTest : public ShellTest {};

TEST_F(ShellCommandRunnerTest, captureReturnsWhatWasPrintedUnchanged) {
  EXPECT_EQ(runner.runCaptured("print -r -- ' a b\r'; print -n end"), " a b\r\nend");
  EXPECT_EQ(runner.runCaptured("printf 'Gr\\xc3\\xb6\\xc3\\x9fe\\0x'"), std::string("Größe\0x", 9));
}

TEST_F(ShellCommandRunnerTest, captureOfNothingIsEmpty) { EXPECT_EQ(runner.runCaptured(":"), ""); }

TEST_F(ShellCommandRunnerTest, captureReturnsStandardErrorAlone) {
  EXPECT_EQ(runner.runCaptured("print -u2 trouble"), "trouble\n");
}

TEST_F(ShellCommandRunnerTest, captureKeepsTheOrderOfBothOutputs) {
  EXPECT_EQ(runner.runCaptured("print one; print -u2 two; /bin/echo three; /bin/echo four >&2; print five"),
            "one\ntwo\nthree\nfour\nfive\n");
}

TEST_F(ShellCommandRunnerTest, aFailedCommandsTextIsItsOutput) {
  const std::string text = runner.runCaptured("no-such-command-anywhere");
  EXPECT_NE(text.find("command not found: no-such-command-anywhere"), std::string::npos) << text;
  EXPECT_EQ(runner.runCaptured("print gone; exit 7"), "gone\n");
}

TEST_F(ShellCommandRunnerTest, theShellInterpretsOperators) {
  EXPECT_EQ(runner.runCaptured("false && print no; false; print \"$((1 + 2))\" '*'"), "3 *\n");
}

TEST_F(ShellCommandRunnerTest, captureReturnsMoreThanAPipeHolds) {
  const std::string text = runner.runCaptured("for i in {1..4000}; do print -r -- ${(l:99::x:)}; done");
  EXPECT_EQ(text.size(), 400000U);
  EXPECT_EQ(text.find_first_not_of("x\n"), std::string::npos);
}

TEST_F(ShellCommandRunnerTest, captureIncludesWhatADescendantPrintsLater) {
  release();
  EXPECT_EQ(runner.runCaptured("print early; { " + wait() + "; print late } &!"), "early\nlate\n");
}

TEST_F(ShellCommandRunnerTest, captureReturnsWhenTheOutputEndsThoughTheChildLivesOn) {
  EXPECT_EQ(runner.runCaptured("print last words; exec >&- 2>&-; " + wait() + "; : > " + path("ended")),
            "last words\n");
  runner.reap();
  EXPECT_TRUE(hasChildren());
  EXPECT_FALSE(sandbox.holds("ended"));
  EXPECT_FALSE(isReadable());
  release();
  EXPECT_TRUE(waitFor([this] { return isReadable(); }));
  EXPECT_TRUE(waitFor([this] { return allReaped(); }));
}

TEST_F(ShellCommandRunnerTest, whatAStartUpFilePrintsIsCapturedToo) {
  sandbox.write(".zshenv", "print hello; print -u2 there\n");
  EXPECT_EQ(runner.runCaptured("print 0.2"), "hello\nthere\n0.2\n");
}

TEST_F(ShellCommandRunnerTest, detachedReturnsWhileTheChildRuns) {
  runner.runDetached(wait() + "; : > " + path("ended"));
  EXPECT_FALSE(sandbox.holds("ended"));
  release();
  EXPECT_TRUE(waitFor([this] { return sandbox.holds("ended"); }));
}

TEST_F(ShellCommandRunnerTest, detachedChildrenRunConcurrently) {
  runner.runDetached(": > " + path("first") + "; " + wait());
  runner.runDetached(": > " + path("second") + "; " + wait());
  EXPECT_TRUE(waitFor([this] { return sandbox.holds("first") && sandbox.holds("second"); }));
  EXPECT_FALSE(isReadable());
  release();
  release();
}

TEST_F(ShellCommandRunnerTest, aDetachedChildWithTooMuchOutputBlocksItselfAlone) {
  runner.runDetached("print $$ > " + path("pid") + "; for i in {1..1000}; do print -r -- ${(l:4096::x:)}; print $i > " +
                     path("progress") + "; done");
  EXPECT_TRUE(waitFor([this] { return sandbox.read("progress").size() > 1; }));
  const pid_t child = std::stoi(sandbox.read("pid"));
  EXPECT_TRUE(waitFor([child] { return fixtures::isAsleep(child); }));
  EXPECT_LT(std::stoi(sandbox.read("progress")), 1000);
  runner.runDetached(": > " + path("other"));
  EXPECT_TRUE(waitFor([this] { return sandbox.holds("other"); }));
  EXPECT_EQ(::kill(child, SIGKILL), 0);
}

TEST_F(ShellCommandRunnerTest, sevenDetachedChildrenAtOncePrintMuchAndStillDoTheirWork) {
  sandbox.write(".zshenv", "print -r -- ${(l:70000::x:)}\n");
  for (const char* name : {"1", "2", "3", "4", "5", "6", "7"}) {
    runner.runDetached("print -r -- ${(l:900000::x:)}; : > " + path(name));
  }
  EXPECT_TRUE(waitFor([this] { return allReaped(); }));
  for (const char* name : {"1", "2", "3", "4", "5", "6", "7"}) {
    EXPECT_TRUE(sandbox.holds(name)) << name;
  }
}

TEST_F(ShellCommandRunnerTest, aDetachedChildOutlivesItsStartUpFilesPrinting) {
  sandbox.write(".zshenv", "print hello; print -u2 there; /bin/echo and more\n");
  runner.runDetached(": > " + path("written"));
  EXPECT_TRUE(waitFor([this] { return sandbox.holds("written"); }));
}

TEST_F(ShellCommandRunnerTest, theWriteHappensThoughTheProgramQuitsAtOnce) {
  sandbox.write(".zshenv", wait() + "; print hello; print -u2 there; /bin/echo and more\n");
  const std::string command = ": > " + path("written");
  EXPECT_EQ(exitStatusOf([&] {
              ShellCommandRunner().runDetached(command);
              return 0;
            }),
            0);
  EXPECT_FALSE(sandbox.holds("written"));
  release();
  EXPECT_TRUE(waitFor([this] { return sandbox.holds("written"); }));
}

volatile std::sig_atomic_t interruptions = 0;
volatile std::sig_atomic_t gateToOpen = -1;

void countInterruption(int) {
  interruptions = interruptions + 1;
  if (interruptions == 50) {
    (void)!::write(gateToOpen, "\n", 1);
  }
}

TEST_F(ShellCommandRunnerTest, interruptedCallsAreRepeated) {
  gateToOpen = gate();
  struct sigaction action = {};
  action.sa_handler = countInterruption;
  struct sigaction before = {};
  ::sigaction(SIGALRM, &action, &before);
  const itimerval storm = {.it_interval = {.tv_sec = 0, .tv_usec = 1000}, .it_value = {.tv_sec = 0, .tv_usec = 1000}};
  ::setitimer(ITIMER_REAL, &storm, nullptr);
  const std::string text = runner.runCaptured("print early; " + wait() + "; print late");
  const itimerval calm = {};
  ::setitimer(ITIMER_REAL, &calm, nullptr);
  ::sigaction(SIGALRM, &before, nullptr);
  EXPECT_EQ(text, "early\nlate\n");
  EXPECT_GE(interruptions, 50);
}

TEST_F(ShellCommandRunnerTest, closedStandardStreamsAreNoTrouble) {
  const auto body = [this] {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
      ::close(stream);
    }
    ShellCommandRunner own;
    const std::string text = own.runCaptured("print out; print -u2 err; cat");
    own.runDetached("print unread; : > " + path("written"));
    return text == "out\nerr\n" && waitFor([this] { return sandbox.holds("written"); }) ? 0 : 1;
  };
  EXPECT_EQ(exitStatusOf(body), 0);
}

TEST_F(ShellCommandRunnerTest, outputThatIsNotUtf8IsAFault) {
  EXPECT_DEATH(runner.runCaptured("printf 'bad \\xff'"), "^tarnwell: the output of .* is not UTF-8\n$");
  EXPECT_DEATH(runner.runCaptured("printf '\\xed\\xa0\\x80'"), "^tarnwell: the output of .* is not UTF-8\n$");
}

TEST_F(ShellCommandRunnerTest, aLaunchThatFailsIsAFault) {
  // Longer than the system lets one argument be.
  const std::string tooLong = ":" + std::string(4000000, ' ');
  EXPECT_DEATH(runner.runDetached(tooLong), "^tarnwell: cannot launch /bin/zsh: .*\n$");
  EXPECT_DEATH(runner.runCaptured(tooLong), "^tarnwell: cannot launch /bin/zsh: .*\n$");
}

// The sanitizer would look at the runner's type through a pipe, and there is none to be had.
__attribute__((noinline, no_sanitize("vptr"))) void runWithoutDescriptors(ShellCommandRunner& runner) {
  const rlimit none = {.rlim_cur = 0, .rlim_max = 0};
  ::setrlimit(RLIMIT_NOFILE, &none);
  runner.runDetached(":");
}

TEST_F(ShellCommandRunnerTest, aLaunchWithNoDescriptorLeftIsAFault) {
  EXPECT_DEATH(runWithoutDescriptors(runner), "^tarnwell: cannot make a pipe: .*\n$");
}

}  // namespace
}  // namespace tarnwell::core
