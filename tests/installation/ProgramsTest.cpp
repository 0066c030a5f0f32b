#include "installation/Programs.h"

#include <gtest/gtest.h>

#include <fstream>

#include "fixtures/Sandbox.h"

namespace tarnwell::installation {
namespace {

namespace fs = std::filesystem;
using fixtures::Sandbox;

enum class Mode { executable, plain };

void place(const fs::path& file, Mode mode = Mode::executable) {
  fs::create_directories(file.parent_path());
  std::ofstream(file) << "#!/bin/sh\n";
  if (mode == Mode::executable) {
    fs::permissions(file, fs::perms::owner_all);
  }
}

TEST(Programs, folderBesideTheExecutableIsTakenBeforeTheInstalledOne) {
  const Sandbox sandbox;
  place(sandbox / "libexec/tarnwell/defaults");
  EXPECT_EQ(*libexecProgram(sandbox / "bin", "tarnwell", "defaults"), sandbox / "libexec/tarnwell/defaults");
  place(sandbox / "bin/libexec/defaults");
  EXPECT_EQ(*libexecProgram(sandbox / "bin", "tarnwell", "defaults"), sandbox / "bin/libexec/defaults");
}

TEST(Programs, folderWithoutAProgramDefaultsIsAFailure) {
  const Sandbox sandbox;
  const std::string expected = "no program defaults in " + (sandbox / "bin/libexec").string() + " nor in " +
                               (sandbox / "libexec/tarnwell").string();
  EXPECT_EQ(libexecProgram(sandbox / "bin", "tarnwell", "defaults").error().message, expected);
  fs::create_directories(sandbox / "bin/libexec/defaults");
  EXPECT_EQ(libexecProgram(sandbox / "bin", "tarnwell", "defaults").error().message, expected);
  place(sandbox / "libexec/tarnwell/defaults", Mode::plain);
  EXPECT_EQ(libexecProgram(sandbox / "bin", "tarnwell", "defaults").error().message, expected);
}

TEST(Programs, whatUsersStartIsFoundFromItsHelpers) {
  const Sandbox sandbox;
  place(sandbox / "built/tarnwell");
  place(sandbox / "bin/tarnwell");
  EXPECT_EQ(frontOf(sandbox / "built/libexec/tarnwell-window", "tarnwell"), sandbox / "built/tarnwell");
  EXPECT_EQ(frontOf(sandbox / "libexec/tarnwell/tarnwell-window", "tarnwell"), sandbox / "bin/tarnwell");
}

// Where /bin leads to /usr/bin, a front stands where that of a helper in the folder above would be.
TEST(Programs, frontIsNoHelperThoughItsFolderHasAnotherName) {
  const Sandbox sandbox;
  place(sandbox / "usr/bin/tarnwell");
  fs::create_directory_symlink("usr/bin", sandbox / "bin");
  EXPECT_EQ(frontOf(sandbox / "usr/bin/tarnwell", "tarnwell"), sandbox / "usr/bin/tarnwell");
}

TEST(Programs, whatIsNothingsHelperIsStartedItself) {
  const Sandbox sandbox;
  const fs::path alone = sandbox / "libexec/tarnwell/tarnwell-window";
  EXPECT_EQ(frontOf(alone, "tarnwell"), alone);
  place(sandbox / "bin/tarnwell", Mode::plain);
  EXPECT_EQ(frontOf(alone, "tarnwell"), alone);
  place(sandbox / "built/tarnwell");
  EXPECT_EQ(frontOf(sandbox / "built/tarnwell", "tarnwell"), sandbox / "built/tarnwell");
}

}  // namespace
}  // namespace tarnwell::installation
