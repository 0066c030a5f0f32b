#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "fixtures/Sandbox.h"
#include "fixtures/WaitFor.h"
#include "system/files/ReadFile.h"
#include "system/processes/Process.h"
#include "system/processes/RunningProcess.h"

namespace tarnwell::system {
namespace {

// To root, whom the kernel lets end it.
TEST(OtherUsersProcessTest, isNotFound) {
  if (::geteuid() != 0) {
    GTEST_SKIP() << "only root can start a process of another user";
  }
  const fixtures::Sandbox sandbox;
  std::filesystem::permissions(sandbox.path(), std::filesystem::perms::all);
  const std::string name = "user-" + std::to_string(::getpid());
  const std::string path = (sandbox / name).string();
  std::filesystem::copy_file("/bin/sleep", path);
  Process own = *Process::start({.words = {path, "600"}});
  Process others = *Process::start({.words = {"setpriv", "--reuid=65534", "--clear-groups", path, "600"}});
  for (const Process* each : {&own, &others}) {
    const std::string file = "/proc/" + std::to_string(each->number()) + "/comm";
    EXPECT_TRUE(fixtures::waitFor([&] {
      const auto content = readFile(file, name.size() + 1);
      return content && *content == name + "\n";
    }));
  }
  const std::string_view sought = name;
  std::vector<pid_t> numbers;
  for (const RunningProcess& each : RunningProcess::named({&sought, 1})) {
    numbers.push_back(each.number());
  }
  EXPECT_THAT(numbers, testing::ElementsAre(own.number()));
  for (Process* each : {&own, &others}) {
    each->send(SIGKILL);
    EXPECT_EQ(each->wait().number, SIGKILL);
  }
}

}  // namespace
}  // namespace tarnwell::system
