#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <cerrno>
#include <vector>

#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "system/FilterLinux.h"
#include "system/files/ReadFile.h"

namespace tarnwell::system {
namespace {

TEST(ReadFileTest, saysThatWhatWasOpenedCannotBeRead) {
  const fixtures::Sandbox sandbox;
  sandbox.write("file", "text");
  for (const std::vector<unsigned>& calls : {std::vector<unsigned>{__NR_fstat, __NR_newfstatat}, {__NR_read}}) {
    EXPECT_EQ(fixtures::exitStatusOf([&] {
                for (const unsigned call : calls) {
                  refuse(call);
                }
                const auto content = readFile(sandbox / "file", 9);
                return !content && content.error().error == EIO ? 0 : 1;
              }),
              0);
  }
}

// Else it would count as a file that never was.
TEST(ReadFileTest, whatWasOpenedIsNotSaidToBeAbsent) {
  const fixtures::Sandbox sandbox;
  sandbox.write("file", "text");
  EXPECT_EQ(fixtures::exitStatusOf([&] {
              refuse(__NR_read, ENOENT);
              const auto content = readFile(sandbox / "file", 9);
              return !content && content.error().error == ESTALE ? 0 : 1;
            }),
            0);
}

}  // namespace
}  // namespace tarnwell::system
