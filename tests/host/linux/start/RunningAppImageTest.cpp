#include "host/linux/start/RunningAppImage.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/Sandbox.h"

namespace tarnwell::host_linux {
namespace {

namespace fs = std::filesystem;

TEST(RunningAppImage, onlyTheAppImageOfThisProgramIsItsOwn) {
  const fixtures::Sandbox sandbox;
  fs::create_directories(sandbox / "mounted/usr/bin");
  sandbox.write("Some.AppImage", "");
  const fs::path root = fs::canonical(sandbox.path());
  const fixtures::EnvironmentScope image("APPIMAGE", (sandbox / "Some.AppImage").string());
  EXPECT_FALSE(runningAppImage(root / "mounted/usr/bin/tarnwell"));
  const fixtures::EnvironmentScope mounted("APPDIR", (sandbox / "mounted").string());
  EXPECT_EQ(runningAppImage(root / "mounted/usr/bin/tarnwell"), root / "Some.AppImage");
  // Started from the terminal of another AppImage.
  EXPECT_FALSE(runningAppImage("/usr/bin/tarnwell"));
  EXPECT_FALSE(runningAppImage(root / "mounted-not/tarnwell"));
  const fixtures::EnvironmentScope gone("APPIMAGE", (sandbox / "Gone.AppImage").string());
  EXPECT_FALSE(runningAppImage(root / "mounted/usr/bin/tarnwell"));
}

}  // namespace
}  // namespace tarnwell::host_linux
