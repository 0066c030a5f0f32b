#include "system/processes/RunningProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fixtures/Sandbox.h"
#include "fixtures/WaitFor.h"
#include "system/processes/Process.h"
#include "system/processes/RunningExecutable.h"

namespace tarnwell::system {
namespace {

using fixtures::waitFor;
using testing::Contains;
using testing::IsEmpty;
using testing::SizeIs;

/// A child of a name of its own, which the system may cut, that does nothing.
class RunningProcessTest : public testing::Test {
 public:
  RunningProcessTest(const RunningProcessTest&) = delete;
  RunningProcessTest& operator=(const RunningProcessTest&) = delete;

 protected:
  RunningProcessTest() {
    std::filesystem::copy_file("/bin/sleep", sandbox_ / name_);
    const std::string line = "cd '" + sandbox_.path().string() + "' && exec './" + name_ + "' 600";
    child_ = *Process::start({.words = {"/bin/sh", "-c", line}, .environment = {{"ONE=1", "TWO=2\n3"}}});
  }
  ~RunningProcessTest() override {
    child_.send(SIGKILL);
    child_.wait();
  }

  Process& child() { return child_; }
  const fixtures::Sandbox& sandbox() const { return sandbox_; }

  const std::string& name() const { return name_; }

  std::vector<RunningProcess> found() const {
    const std::array<std::string_view, 2> names = {"none-of-this-name", name_};
    std::vector<RunningProcess> found = RunningProcess::named(names);
    std::erase_if(found, [&](const RunningProcess& each) { return each.number() != child_.number(); });
    return found;
  }

  /// Once it is the program of the name.
  RunningProcess held() const {
    std::vector<RunningProcess> held;
    EXPECT_TRUE(waitFor([&] {
      held = found();
      return !held.empty();
    }));
    return std::move(held.at(0));
  }

 private:
  fixtures::Sandbox sandbox_;
  std::string name_ = "A-long-name-of-" + std::to_string(::getpid());
  Process child_{-1};
};

TEST_F(RunningProcessTest, tellsWhereItRunsAndWithWhichEnvironment) {
  const RunningProcess process = held();
  EXPECT_EQ(process.name(), name());
  EXPECT_THAT(process.environment(), Contains("ONE=1"));
  EXPECT_THAT(process.environment(), Contains("TWO=2\n3"));
  EXPECT_TRUE(std::filesystem::equivalent(process.workingFolder(), sandbox().path()));
}

TEST_F(RunningProcessTest, isNotFoundOnceItHasEndedThoughItIsNotReaped) {
  const RunningProcess process = held();
  const auto soon = std::chrono::steady_clock::now() + std::chrono::milliseconds(50);
  EXPECT_FALSE(process.waitForEnd(soon));
  EXPECT_TRUE(process.send(SIGTERM));
  EXPECT_TRUE(process.waitForEnd(std::chrono::steady_clock::now() + std::chrono::seconds(20)));
  EXPECT_THAT(found(), IsEmpty());
  EXPECT_THAT(process.environment(), IsEmpty());
  EXPECT_EQ(child().wait().number, SIGTERM);
  EXPECT_FALSE(process.send(SIGTERM));
}

// The test's own process has started it, and the shell's a process of another name.
TEST_F(RunningProcessTest, isFoundAmongTheChildrenOfItsParent) {
  const RunningProcess process = held();
  Process shell = *Process::start(
      {.words = {"/bin/sh", "-c", "'" + (sandbox().path() / name()).string() + "' 600 & exec sleep 600"}});
  const std::string_view sleep = "sleep";
  std::vector<RunningProcess> shells;
  EXPECT_TRUE(waitFor([&] {
    shells = RunningProcess::named({&sleep, 1});
    std::erase_if(shells, [&](const RunningProcess& each) { return each.number() != shell.number(); });
    return !shells.empty();
  }));
  std::vector<RunningProcess> children;
  EXPECT_TRUE(waitFor([&] {
    children = shells.at(0).childrenNamed(name());
    return !children.empty();
  }));
  EXPECT_THAT(children, SizeIs(1));
  EXPECT_NE(children.at(0).number(), process.number());
  EXPECT_THAT(shells.at(0).childrenNamed("sleep"), IsEmpty());
  children.at(0).send(SIGKILL);
  shell.send(SIGKILL);
  shell.wait();
}

TEST(RunningProcessesTest, leaveOutTheOneThatAsks) {
  const std::string own = runningExecutable()->filename();
  const std::string_view name = own;
  for (const RunningProcess& each : RunningProcess::named({&name, 1})) {
    EXPECT_NE(each.number(), ::getpid());
  }
}

}  // namespace
}  // namespace tarnwell::system
