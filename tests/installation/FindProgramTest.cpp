#include "installation/FindProgram.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/Sandbox.h"

namespace tarnwell::installation {
namespace {

namespace fs = std::filesystem;

class FindProgramTest : public testing::Test {
 protected:
  FindProgramTest() {
    fs::create_directories(sandbox / "first/folder");
    fs::create_directory(sandbox / "second");
    sandbox.write("first/text", "");
    sandbox.write("second/program", "");
    fs::permissions(sandbox / "first/text", fs::perms::owner_read | fs::perms::owner_write);
    fs::permissions(sandbox / "second/program", fs::perms::owner_all);
  }

  fixtures::Sandbox sandbox;
  fixtures::EnvironmentScope path{"PATH", (sandbox / "first").string() + ":" + (sandbox / "second").string()};
};

TEST_F(FindProgramTest, aBareNameIsLookedForInEachFolderOfThePath) {
  EXPECT_TRUE(isFound("program"));
  EXPECT_FALSE(isFound("nothing"));
}

TEST_F(FindProgramTest, aNameWithAFolderHasToBeAbsolute) {
  EXPECT_TRUE(isFound((sandbox / "second/program").string()));
  EXPECT_FALSE(isFound((sandbox / "second/nothing").string()));
  EXPECT_FALSE(isFound("../second/program"));
}

TEST_F(FindProgramTest, aFolderAndAFileThatCannotBeRunAreNoPrograms) {
  EXPECT_FALSE(isFound("folder"));
  EXPECT_FALSE(isFound("text"));
}

}  // namespace
}  // namespace tarnwell::installation
