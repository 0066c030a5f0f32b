#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "installation/StandIns.h"
#include "installation/UserEnvironment.h"

namespace tarnwell::installation {
namespace {

namespace fs = std::filesystem;
using fixtures::EnvironmentScope;
using fixtures::Sandbox;

void placeDefaults(const fs::path& folder) {
  fs::create_directories(folder);
  std::ofstream(folder / "defaults") << "#!/bin/sh\necho ours\n";
  fs::permissions(folder / "defaults", fs::perms::owner_all);
}

// The folder beside this test program, for as long as a test needs it.
struct OwnLibexec {
  OwnLibexec() { placeDefaults(path); }
  OwnLibexec(const OwnLibexec&) = delete;
  OwnLibexec& operator=(const OwnLibexec&) = delete;
  ~OwnLibexec() {
    std::error_code ignored;
    fs::remove_all(path, ignored);
  }
  const fs::path path = fs::read_symlink("/proc/self/exe").parent_path() / "libexec";
};

TEST(StandIns, childrenFindTheStandInsBeforeAnotherPackagesTools) {
  const Sandbox other;
  placeDefaults(other.path());
  const EnvironmentScope path("PATH", other.path().string() + ":/usr/bin:/bin");
  ASSERT_FALSE(putStandInsFirst("tarnwell"));
  EXPECT_EQ(std::getenv("PATH"), other.path().string() + ":/usr/bin:/bin");
  const OwnLibexec own;
  const std::string expected = own.path.string() + ":" + other.path().string() + ":/usr/bin:/bin";
  const std::string command = "test \"$(command -v defaults)\" = '" + (own.path / "defaults").string() + "'";
  // In a copy: what a process keeps of its environment, it keeps for good.
  const int status = fixtures::exitStatusOf([&] {
    const bool isDone = putStandInsFirst("tarnwell") && std::getenv("PATH") == expected;
    return isDone && std::system(command.c_str()) == 0 ? 0 : 1;
  });
  EXPECT_EQ(status, 0);
}

TEST(StandIns, programsOfTheUserDoNotFindTheStandIns) {
  const EnvironmentScope path("PATH", "/usr/bin:/bin");
  const OwnLibexec own;
  const int status = fixtures::exitStatusOf([] {
    const auto hasPath = [] { return std::ranges::count(userEnvironment(), "PATH=/usr/bin:/bin") == 1; };
    const bool isDone = putStandInsFirst("tarnwell") && putStandInsFirst("tarnwell");
    return isDone && hasPath() && std::getenv("PATH") != std::string("/usr/bin:/bin") ? 0 : 1;
  });
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace tarnwell::installation
