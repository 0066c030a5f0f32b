#include "system/files/Folders.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "fixtures/Sandbox.h"

namespace tarnwell::system {
namespace {

TEST(FoldersTest, areMadeWhereTheyAreMissing) {
  const fixtures::Sandbox sandbox;
  EXPECT_TRUE(makeFolders(sandbox / "a/b/c"));
  EXPECT_TRUE(makeFolders(sandbox / "a/b"));
  EXPECT_TRUE(makeFolders(""));
  EXPECT_TRUE(std::filesystem::is_directory(sandbox / "a/b/c"));
}

TEST(FoldersTest, areNotMadeBelowAFile) {
  const fixtures::Sandbox sandbox;
  sandbox.write("file", "");
  for (const char* folder : {"file/a", "file/a/b"}) {
    EXPECT_FALSE(makeFolders(sandbox / folder)) << folder;
    EXPECT_EQ(errno, ENOTDIR);
  }
}

TEST(FoldersTest, oneThatIsNotThereCannotBeSynced) {
  const fixtures::Sandbox sandbox;
  EXPECT_TRUE(syncFolder(sandbox.path()));
  EXPECT_FALSE(syncFolder(sandbox / "absent"));
  EXPECT_EQ(errno, ENOENT);
}

TEST(FoldersTest, aBareNameIsInTheFolderThatIsWorkedIn) {
  EXPECT_EQ(folderOf("name"), ".");
  EXPECT_EQ(folderOf("/a/name"), "/a");
  EXPECT_EQ(folderOf("/name"), "/");
}

}  // namespace
}  // namespace tarnwell::system
