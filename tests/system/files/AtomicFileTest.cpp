#include "system/files/AtomicFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <future>
#include <string>
#include <utility>

#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "system/files/UnnamedFiles.h"

namespace tarnwell::system {
namespace {

/// The name in the sandbox that a file has on its way to "list".
const std::string passingName = AtomicFile::passingPath("list").filename().string();

TEST(AtomicFileTest, isPlacedWhereFilesHaveToHaveANameToo) {
  const fixtures::Sandbox sandbox;
  sandbox.write(passingName, "what a killed process left");
  EXPECT_EQ(fixtures::exitStatusOf([&sandbox] {
              AtomicFile file(sandbox / "list", 0600);
              const bool isWritten = refuseUnnamedFiles() && file.write("bytes") && sandbox.holds(passingName);
              return isWritten && file.place() ? 0 : 1;
            }),
            0);
  EXPECT_EQ(sandbox.read("list"), "bytes");
  EXPECT_FALSE(sandbox.holds(passingName));
}

TEST(AtomicFileTest, keepsPermissionsButLendsNoRights) {
  const fixtures::Sandbox sandbox;
  sandbox.write("list", "before");
  std::filesystem::permissions(sandbox / "list", std::filesystem::perms(04751));
  AtomicFile file(sandbox / "list", 0600);
  ASSERT_TRUE(file.write("bytes"));
  ASSERT_TRUE(file.place());
  EXPECT_EQ(std::filesystem::status(sandbox / "list").permissions(), std::filesystem::perms(0751));
}

TEST(AtomicFileTest, staysInTheFolderThatItWasBegunIn) {
  const fixtures::Sandbox sandbox;
  std::filesystem::create_directory(sandbox / "folder");
  AtomicFile file(sandbox / "folder/list", 0600);
  ASSERT_TRUE(file.write("bytes"));
  std::filesystem::rename(sandbox / "folder", sandbox / "moved");
  std::filesystem::create_directory(sandbox / "folder");
  ASSERT_TRUE(file.place());
  EXPECT_EQ(sandbox.read("moved/list"), "bytes");
  EXPECT_TRUE(std::filesystem::is_empty(sandbox / "folder"));
}

TEST(AtomicFileTest, saysThatThereIsNoFolder) {
  const fixtures::Sandbox sandbox;
  AtomicFile file(sandbox / "absent/list", 0600);
  const auto written = file.write("bytes");
  ASSERT_FALSE(written);
  EXPECT_EQ(written.error().message,
            "cannot make a file beside " + (sandbox / "absent/list").string() + ": No such file or directory");
}

TEST(AtomicFileTest, isACopyOfAnother) {
  const fixtures::Sandbox sandbox;
  const std::string bytes(1'000'000, 'b');
  sandbox.write("from", bytes);
  const Descriptor from(::open((sandbox / "from").c_str(), O_RDONLY | O_CLOEXEC));
  AtomicFile file(sandbox / "list", 0640);
  ASSERT_TRUE(file.copy(from.number()));
  EXPECT_FALSE(sandbox.holds("list"));
  ASSERT_TRUE(file.place());
  EXPECT_EQ(sandbox.read("list"), bytes);
  EXPECT_EQ(std::filesystem::status(sandbox / "list").permissions(), std::filesystem::perms(0640));
}

TEST(AtomicFileTest, leavesItsNameOnTheWayToOthersOnceItIsPlaced) {
  using Step = Result<void> (AtomicFile::*)();
  for (const auto& [target, step] :
       {std::pair("list", Step(&AtomicFile::place)), std::pair("new", Step(&AtomicFile::commit))}) {
    const fixtures::Sandbox sandbox;
    sandbox.write("list", "before");
    const std::filesystem::path passing = AtomicFile::passingPath(target);
    {
      AtomicFile file(sandbox / target, 0600);
      ASSERT_TRUE(file.write("bytes"));
      ASSERT_TRUE((file.*step)());
      EXPECT_FALSE(sandbox.holds(passing.filename()));
      sandbox.write(passing.filename(), "another's");
    }
    EXPECT_EQ(sandbox.read(passing.filename()), "another's");
  }
}

TEST(AtomicFileTest, whatIsNotPlacedIsGoneAndNoOther) {
  const fixtures::Sandbox sandbox;
  EXPECT_EQ(fixtures::exitStatusOf([&sandbox] {
              AtomicFile file(sandbox / "list", 0600);
              return refuseUnnamedFiles() && file.write("bytes") && sandbox.holds(passingName) ? 0 : 1;
            }),
            0);
  EXPECT_TRUE(std::filesystem::is_empty(sandbox.path()));
  AtomicFile(sandbox / "list", 0600).removeRemains();
  sandbox.write(passingName, "another's");
  { const AtomicFile unused(sandbox / "list", 0600); }
  EXPECT_TRUE(sandbox.holds(passingName));
}

TEST(AtomicFileTest, takesANameThatALinkHas) {
  const fixtures::Sandbox sandbox;
  sandbox.write("list", "before");
  std::filesystem::create_symlink("elsewhere", sandbox / passingName);
  AtomicFile file(sandbox / "list", 0600);
  EXPECT_TRUE(file.write("bytes"));
  EXPECT_TRUE(file.commit());
  EXPECT_EQ(sandbox.read("list"), "bytes");
}

// Each waits for those before it, and may find that another one was quicker then.
TEST(AtomicFileTest, severalThatWriteAtOnceAllGetThrough) {
  const fixtures::Sandbox sandbox;
  std::array<std::future<bool>, 6> writers;
  for (auto& writer : writers) {
    writer = std::async(std::launch::async, [&sandbox] {
      bool areDone = true;
      for (int count = 0; count < 60; ++count) {
        AtomicFile file(sandbox / "list", 0600);
        areDone = areDone && file.write("bytes") && file.place();
      }
      return areDone;
    });
  }
  for (auto& writer : writers) {
    EXPECT_TRUE(writer.get());
  }
  EXPECT_EQ(sandbox.read("list"), "bytes");
  EXPECT_FALSE(sandbox.holds(passingName));
}

TEST(AtomicFileTest, isNotPlacedWhenItsNameWasTakenAway) {
  const fixtures::Sandbox sandbox;
  EXPECT_EQ(fixtures::exitStatusOf([&sandbox] {
              AtomicFile file(sandbox / "list", 0600);
              const bool isWritten = refuseUnnamedFiles() && file.write("bytes");
              std::filesystem::remove(sandbox / passingName);
              return isWritten && !file.place() ? 0 : 1;
            }),
            0);
  EXPECT_FALSE(sandbox.holds("list"));
}

}  // namespace
}  // namespace tarnwell::system
