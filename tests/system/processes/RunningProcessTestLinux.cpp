#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "fixtures/Sandbox.h"
#include "fixtures/WaitFor.h"
#include "system/files/ReadFile.h"
#include "system/processes/Process.h"
#include "system/processes/RunningProcess.h"
#include "system/processes/RunningProcessLinux.h"

namespace tarnwell::system {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ProcessStandingTest, isReadBehindTheName) {
  for (const std::string name : {"sh", "a b", ") Z 9 (", ")\nZ 9"}) {
    const ProcessStanding standing = standingIn("12 (" + name + ") S 34 12 12 0 -1 4194304 100");
    EXPECT_FALSE(standing.isEnding) << name;
    EXPECT_EQ(standing.parent, 34);
  }
}

TEST(ProcessStandingTest, aProcessThatIsExitingOrGoneIsEnding) {
  for (const std::string behind : {"Z 34 12 12 0 -1 4194304", "X 34 12 12 0 -1 4194304", "S 34 12 12 0 -1 4194308",
                                   "R 34 12 12 0 -1 4", "S 34 12 12 0 -1", ""}) {
    EXPECT_TRUE(standingIn("12 (sh) " + behind).isEnding) << behind;
  }
  for (const std::string line : {"", "12", "12 (sh)"}) {
    EXPECT_TRUE(standingIn(line).isEnding) << line;
  }
}

TEST(ProcessVariablesTest, endWithAZeroByteEach) {
  using namespace std::string_literals;
  EXPECT_THAT(variablesIn("A=1\0B=2\n3\0"s), ElementsAre("A=1", "B=2\n3"));
  EXPECT_THAT(variablesIn("A=1\0B"s), ElementsAre("A=1", "B"));
  EXPECT_THAT(variablesIn(""), IsEmpty());
}

// It has none as long as it is about to go on as another program.
TEST(RunningProcessEnvironmentTest, isThatOfTheParentWhereThereIsNone) {
  const fixtures::Sandbox sandbox;
  const std::string name = "bare-" + std::to_string(::getpid());
  std::filesystem::copy_file("/bin/sleep", sandbox / name);
  Process process = *Process::start({.words = {(sandbox / name).string(), "600"}, .environment = {{}}});
  const std::string_view sought = name;
  std::vector<RunningProcess> found;
  EXPECT_TRUE(fixtures::waitFor([&] {
    found = RunningProcess::named({&sought, 1});
    return !found.empty();
  }));
  EXPECT_THAT(found.at(0).environment(), testing::Contains("PATH=" + std::string(std::getenv("PATH"))));
  process.send(SIGKILL);
  process.wait();
}

TEST(FirstProcessTest, isFoundOnceWhereItIsTheUsers) {
  struct stat status = {};
  if (::stat("/proc/1", &status) != 0 || status.st_uid != ::geteuid()) {
    GTEST_SKIP() << "the first process is another user's";
  }
  std::string name = *readFile("/proc/1/comm", 99);
  name.pop_back();
  const std::string_view sought = name;
  EXPECT_EQ(std::ranges::count(RunningProcess::named({&sought, 1}), 1, &RunningProcess::number), 1);
}

}  // namespace
}  // namespace tarnwell::system
