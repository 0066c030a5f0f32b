#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <string>

#include "core/ShellTest.h"
#include "fixtures/EnvironmentScope.h"
#include "fixtures/Processes.h"
#include "fixtures/Subprocess.h"
#include "fixtures/WaitFor.h"
#include "system/processes/Pipe.h"

namespace tarnwell::core {
namespace {

using fixtures::exitStatusOf;
using fixtures::waitFor;

/// What a child of either mode finds when it starts.
class ShellChildTest : public ShellTest {
 protected:
  /// Runs a command detached and waits for what it leaves in a file.
  std::string resultOfDetached(const std::string& command) {
    runner.runDetached("{ " + command + " } > " + path("result.part") + "; mv " + path("result.part") + " " +
                       path("result"));
    EXPECT_TRUE(waitFor([this] { return sandbox.holds("result"); }));
    return sandbox.read("result");
  }
};

TEST_F(ShellChildTest, theShellIsTheSystemsUnderItsWholeName) {
  EXPECT_EQ(runner.runCaptured("print -r -- $0"), "/bin/zsh\n");
  EXPECT_EQ(resultOfDetached("print -r -- $0;"), "/bin/zsh\n");
}

TEST_F(ShellChildTest, aShellOnTheSearchPathIsNotTaken) {
  sandbox.write("zsh", "#!/bin/sh\necho another shell\n");
  std::filesystem::permissions(sandbox / "zsh", std::filesystem::perms::owner_all);
  const fixtures::EnvironmentScope searchPath("PATH", sandbox.path().string());
  EXPECT_EQ(runner.runCaptured("print the shell"), "the shell\n");
  runner.runDetached(": > " + path("written"));
  EXPECT_TRUE(waitFor([this] { return sandbox.holds("written"); }));
}

TEST_F(ShellChildTest, standardInputIsTheNullDeviceWhateverOursIs) {
  const auto body = [this] {
    ::dup2(gate(), STDIN_FILENO);
    const std::string command = "[[ /dev/stdin -ef /dev/null ]] && print null; cat;";
    return runner.runCaptured(command) == "null\n" && resultOfDetached(command) == "null\n" ? 0 : 1;
  };
  EXPECT_EQ(exitStatusOf(body), 0);
}

TEST_F(ShellChildTest, bothOutputsAreOnePipe) {
  EXPECT_EQ(runner.runCaptured("[[ /dev/stdout -ef /dev/stderr && -p /dev/stdout ]] && print yes"), "yes\n");
  runner.runDetached("[[ /dev/stdout -ef /dev/stderr && -p /dev/stdout ]] && : > " + path("yes"));
  EXPECT_TRUE(waitFor([this] { return sandbox.holds("yes"); }));
}

TEST_F(ShellChildTest, theChildHoldsNoDescriptorOfOurs) {
  const int inheritable = ::open("/dev/zero", O_RDONLY);
  // The last one is the folder that is being listed.
  EXPECT_EQ(runner.runCaptured("exec ls /dev/fd/"), "0\n1\n2\n3\n");
  const bool hasOtherEnd = static_cast<bool>(system::UnreadPipe::create().otherEnd);
  EXPECT_EQ(resultOfDetached("ls /dev/fd/;"), hasOtherEnd ? "0\n1\n2\n3\n4\n" : "0\n1\n2\n3\n");
  ::close(inheritable);
}

TEST_F(ShellChildTest, theChildStartsWithCleanSignals) {
  const auto body = [this] {
    for (const int number : {SIGPIPE, SIGINT, SIGCHLD, SIGUSR2}) {
      std::signal(number, SIG_IGN);
    }
    sigset_t blocked;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGUSR1);
    sigaddset(&blocked, SIGTERM);
    ::sigprocmask(SIG_BLOCK, &blocked, nullptr);
    const std::string command = fixtures::tellingSignals();
    const std::string clean = "blocked\nignored\n";
    return runner.runCaptured(command) == clean && resultOfDetached("( " + command + " )") == clean ? 0 : 1;
  };
  EXPECT_EQ(exitStatusOf(body), 0);
}

TEST_F(ShellChildTest, environmentAndFolderAreInherited) {
  const fixtures::EnvironmentScope scope("TARNWELL_TEST_WORD", "handed down");
  EXPECT_EQ(runner.runCaptured("print $TARNWELL_TEST_WORD"), "handed down\n");
  EXPECT_EQ(runner.runCaptured("pwd -P"), std::filesystem::canonical(".").string() + "\n");
}

}  // namespace
}  // namespace tarnwell::core
