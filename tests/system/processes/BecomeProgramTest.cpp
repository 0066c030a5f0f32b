#include "system/processes/BecomeProgram.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "fixtures/Subprocess.h"
#include "system/base/WordPointers.h"

namespace tarnwell::system {
namespace {

TEST(BecomeProgramTest, goesOnAsTheProgram) {
  const std::vector<std::string> words = {"called", "-c", "test \"$0\" = called && exit 7"};
  EXPECT_EQ(fixtures::exitStatusOf([&words] {
              (void)becomeProgram("/bin/sh", wordPointers(words).data());
              return 1;
            }),
            7);
}

TEST(BecomeProgramTest, saysWhyNot) {
  const Failure failure = becomeProgram("/nowhere/program", wordPointers({"program"}).data());
  EXPECT_EQ(failure.message, "cannot start /nowhere/program: No such file or directory");
  EXPECT_EQ(failure.error, ENOENT);
}

}  // namespace
}  // namespace tarnwell::system
