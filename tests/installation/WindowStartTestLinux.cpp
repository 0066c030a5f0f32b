#include <gtest/gtest.h>

#include <fstream>

#include "fixtures/Sandbox.h"
#include "installation/WindowStart.h"

namespace tarnwell::installation {
namespace {

namespace fs = std::filesystem;

TEST(WindowStart, isTheHelperProgramCalledTheSame) {
  const fixtures::Sandbox sandbox;
  const fs::path window = sandbox / "libexec/tarnwell-window";
  fs::create_directories(window.parent_path());
  std::ofstream(window) << "#!/bin/sh\n";
  fs::permissions(window, fs::perms::owner_all);
  const auto start = windowStart(sandbox / "tarnwell", "tarnwell", {"t", "--launched-at-login"});
  ASSERT_TRUE(start);
  EXPECT_EQ(start->program, window);
  EXPECT_EQ(start->words, (std::vector<std::string>{"t", "--launched-at-login"}));
}

TEST(WindowStart, whereThereIsNoneItsPackageIsNamed) {
  const fixtures::Sandbox sandbox;
  EXPECT_EQ(windowStart(sandbox / "tarnwell", "tarnwell", {"t"}).error().message,
            "The window is not installed; its package is tarnwell.");
}

}  // namespace
}  // namespace tarnwell::installation
