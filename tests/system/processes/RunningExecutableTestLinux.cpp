#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "system/FilterLinux.h"
#include "system/processes/Process.h"
#include "system/processes/RunningExecutable.h"

namespace tarnwell::system {
namespace {

// In a copy of this program, which removes itself.
TEST(RunningExecutableTest, isWhereItLayOnceItIsRemoved) {
  if (const char* own = std::getenv("TARNWELL_TEST_COPY")) {
    EXPECT_EQ(*runningExecutable(), own);
    std::filesystem::remove(own);
    EXPECT_EQ(*runningExecutable(), own);
    return;
  }
  const fixtures::Sandbox sandbox;
  for (const char* name : {"program", "program (deleted)"}) {
    const std::string copy = (sandbox / name).string();
    std::filesystem::copy_file(*runningExecutable(), copy);
    auto process = Process::start({.words = {"env", "TARNWELL_TEST_COPY=" + copy, copy,
                                             "--gtest_filter=RunningExecutableTest.isWhereItLayOnceItIsRemoved"}});
    EXPECT_TRUE(process->wait().isSuccess()) << name;
  }
}

TEST(RunningExecutableTest, saysWhyItCannotBeTold) {
  EXPECT_EQ(fixtures::exitStatusOf([] {
              refuse(__NR_readlink);
              refuse(__NR_readlinkat);
              const auto path = runningExecutable();
              return !path && path.error().message == "cannot tell where the program lies: Input/output error" ? 0 : 1;
            }),
            0);
}

}  // namespace
}  // namespace tarnwell::system
