#include "system/files/ReadFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>

#include "fixtures/Sandbox.h"

namespace tarnwell::system {
namespace {

int errorOf(const std::filesystem::path& path, std::size_t most = 100) {
  const auto content = readFile(path, most);
  return content ? 0 : content.error().error;
}

TEST(ReadFileTest, readsTheWholeFileBehindALink) {
  const fixtures::Sandbox sandbox;
  sandbox.write("file", std::string("a\0b", 3));
  std::filesystem::create_symlink("file", sandbox / "link");
  const auto content = readFile(sandbox / "link", 3);
  ASSERT_TRUE(content);
  EXPECT_EQ(*content, std::string("a\0b", 3));
}

TEST(ReadFileTest, saysWhyNot) {
  const fixtures::Sandbox sandbox;
  sandbox.write("file", "text");
  ASSERT_EQ(::mkfifo((sandbox / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(errorOf(sandbox / "file", 3), EFBIG);
  EXPECT_EQ(errorOf(sandbox / "absent"), ENOENT);
  EXPECT_EQ(errorOf(sandbox / "pipe"), EINVAL);
  EXPECT_EQ(errorOf(sandbox.path()), EISDIR);
  EXPECT_EQ(readFile(sandbox / "absent", 1).error().message,
            "cannot read " + (sandbox / "absent").string() + ": No such file or directory");
}

}  // namespace
}  // namespace tarnwell::system
