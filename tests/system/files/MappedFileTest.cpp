#include "system/files/MappedFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>

#include <cerrno>

#include "fixtures/Sandbox.h"
#include "system/base/Descriptor.h"

namespace tarnwell::system {
namespace {

Result<MappedFile> mapped(const std::filesystem::path& file, int access = O_RDONLY) {
  return MappedFile::create(Descriptor(::open(file.c_str(), access | O_CLOEXEC)).number());
}

TEST(MappedFileTest, hasTheBytesOfAFileAsLongAsItLives) {
  const fixtures::Sandbox sandbox;
  sandbox.write("file", std::string("a\0b", 3));
  const unsigned char* bytes = nullptr;
  {
    const auto file = mapped(sandbox / "file");
    ASSERT_TRUE(file);
    bytes = file->bytes();
    EXPECT_EQ(std::string(bytes, bytes + file->length()), std::string("a\0b", 3));
  }
  EXPECT_EQ(::msync(const_cast<unsigned char*>(bytes), 1, MS_ASYNC), -1);
  EXPECT_EQ(errno, ENOMEM) << "the memory is the system's again";
}

TEST(MappedFileTest, mayBeEmpty) {
  const fixtures::Sandbox sandbox;
  sandbox.write("file", "");
  const auto file = mapped(sandbox / "file");
  ASSERT_TRUE(file);
  EXPECT_EQ(file->length(), 0U);
}

TEST(MappedFileTest, saysWhyNot) {
  const fixtures::Sandbox sandbox;
  sandbox.write("file", "text");
  EXPECT_EQ(mapped(sandbox / "absent").error().message, "cannot read the file: Bad file descriptor");
  EXPECT_EQ(mapped(sandbox / "file", O_WRONLY).error().message, "cannot read the file: Permission denied");
}

}  // namespace
}  // namespace tarnwell::system
