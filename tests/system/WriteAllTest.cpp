#include "system/WriteAll.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <string>

#include "fixtures/Sandbox.h"
#include "system/Descriptor.h"

namespace tarnwell::system {
namespace {

TEST(WriteAllTest, writesWhatIsLongerThanOneBlock) {
  const fixtures::Sandbox sandbox;
  const std::string text(1'000'000, 'a');
  const Descriptor file(::open((sandbox / "file").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
  EXPECT_TRUE(writeAll(file.number(), text));
  EXPECT_EQ(sandbox.read("file"), text);
}

TEST(WriteAllTest, tellsOfAFullDevice) {
  const Descriptor full(::open("/dev/full", O_WRONLY | O_CLOEXEC));
  errno = 0;
  EXPECT_FALSE(writeAll(full.number(), "text"));
  EXPECT_EQ(errno, ENOSPC);
}

}  // namespace
}  // namespace tarnwell::system
