#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/landlock.h>
#include <netinet/in.h>
#include <seccomp.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <filesystem>

#include "confinement/Fences.h"
#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "system/base/Descriptor.h"

namespace tarnwell::confinement {
namespace {

namespace fs = std::filesystem;

const std::vector<fs::path> startedBy = {"/usr/bin/true", "/lib64/ld-linux-x86-64.so.2", "/lib/ld-linux-aarch64.so.1"};

bool canOpen(const fs::path& path, int flags) {
  return static_cast<bool>(system::Descriptor(::open(path.c_str(), flags | O_CLOEXEC, 0600)));
}

bool canStart(const fs::path& program) {
  return fixtures::exitStatusOf([&program] {
           const std::string name = program.string();
           const std::array<const char*, 2> words = {name.c_str(), nullptr};
           return ::execv(name.c_str(), const_cast<char* const*>(words.data()));
         }) == 0;
}

bool canBind() {
  const system::Descriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return ::bind(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

/// Of the kernel that the test runs on.
long version() { return ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION); }

/// A copy of this process behind the fence, in which the expectations of `work` are to hold.
void behind(const Rights& rights, bool isWhole, const std::function<void()>& work) {
  const int status = fixtures::exitStatusOf([&] {
    EXPECT_TRUE(refuseNewPrivileges());
    EXPECT_EQ(fenceFiles(rights), isWhole);
    work();
    return testing::Test::HasFailure() ? 1 : 0;
  });
  EXPECT_EQ(status, 0);
}

class FileFenceTest : public testing::Test {
 protected:
  FileFenceTest() {
    fs::create_directories(sandbox / "readable");
    fs::create_directories(sandbox / "writable");
    for (const char* name : {"readable/file", "closed", "given", "writable/file"}) {
      sandbox.write(name, "content");
    }
  }

  bool canRead(const std::string& name) const { return canOpen(sandbox / name, O_RDONLY); }
  bool canChange(const std::string& name) const { return canOpen(sandbox / name, O_WRONLY); }

  fixtures::Sandbox sandbox;
};

TEST_F(FileFenceTest, closesWhatTheRightsDoNotName) {
  behind({}, true, [this] {
    for (const char* name : {"readable", "readable/file", "closed", "writable/file"}) {
      EXPECT_FALSE(canRead(name)) << name;
    }
    EXPECT_FALSE(canOpen(sandbox / "writable/new", O_WRONLY | O_CREAT));
    EXPECT_FALSE(canStart("/usr/bin/true"));
  });
}

TEST_F(FileFenceTest, whatIsReadableIsSoAndNothingElse) {
  fs::copy_file("/usr/bin/true", sandbox / "readable/program");
  behind({.readable = {sandbox / "missing", sandbox / "readable", "/usr/bin/true", "/lib", "/usr/lib"}}, true, [this] {
    EXPECT_TRUE(canRead("readable"));
    EXPECT_TRUE(canRead("readable/file"));
    EXPECT_FALSE(canChange("readable/file"));
    EXPECT_FALSE(canRead("closed"));
    EXPECT_FALSE(canStart(sandbox / "readable/program"));
    EXPECT_EQ(::truncate((sandbox / "readable/file").c_str(), 0) == 0, version() < 3);
  });
}

TEST_F(FileFenceTest, aProgramThatMayBeStartedCanBe) {
  behind({.readable = {"/lib", "/usr/lib", "/lib64", "/etc/ld.so.cache"}, .programs = startedBy}, true, [] {
    EXPECT_TRUE(canStart("/usr/bin/true"));
    EXPECT_FALSE(canStart("/bin/sh"));
  });
}

TEST_F(FileFenceTest, aFileThatIsOpenCanBeOpenedAnewWhereThatIsNeeded) {
  for (const int given : {-1, STDIN_FILENO}) {
    const int status = fixtures::exitStatusOf([&] {
      ::dup2(::open((sandbox / "given").c_str(), O_RDONLY | O_CLOEXEC), STDIN_FILENO);
      behind({.readableFile = given}, true, [&] {
        EXPECT_EQ(canOpen("/proc/self/fd/0", O_RDONLY), given == STDIN_FILENO);
        EXPECT_FALSE(canOpen("/proc/self/fd/0", O_WRONLY));
        EXPECT_FALSE(canRead("closed"));
      });
      return HasFailure() ? 1 : 0;
    });
    EXPECT_EQ(status, 0);
  }
}

TEST_F(FileFenceTest, inAWritableFolderFilesAreMadeReadChangedAndRemoved) {
  const system::Descriptor folder(::open((sandbox / "writable").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  behind({.writable = {folder.number()}}, true, [this] {
    EXPECT_TRUE(canOpen(sandbox / "writable/new", O_WRONLY | O_CREAT | O_EXCL));
    EXPECT_TRUE(canRead("writable/file"));
    EXPECT_TRUE(canOpen(sandbox / "writable/file", O_WRONLY | O_TRUNC));
    EXPECT_EQ(::unlink((sandbox / "writable/file").c_str()), 0);
    EXPECT_NE(::mkdir((sandbox / "writable/folder").c_str(), 0700), 0);
    EXPECT_NE(::symlink("/", (sandbox / "writable/link").c_str()), 0);
    EXPECT_FALSE(canRead("closed"));
  });
}

TEST_F(FileFenceTest, whatCannotBeOpenedIsSaidAndTheRestIsClosedAllTheSame) {
  std::array<int, 2> pipe = {};
  ASSERT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
  // It has no place in any file system.
  const fs::path nowhere = "/proc/self/fd/" + std::to_string(pipe[0]);
  const std::vector<Rights> wrong = {{.readable = {nowhere}},
                                     {.programs = {nowhere}},
                                     {.readableFile = pipe[0]},
                                     {.writable = {pipe[0]}},
                                     {.writable = {1'000'000}}};
  for (const Rights& rights : wrong) {
    behind(rights, false, [this] { EXPECT_FALSE(canRead("closed")); });
  }
}

TEST_F(FileFenceTest, onANewerKernelNetworkAndProcessesOutsideAreClosedToo) {
  behind({}, true, [] {
    EXPECT_EQ(canBind(), version() < 4);
    EXPECT_EQ(::kill(::getppid(), 0) == 0, version() < 6);
  });
  behind({.usesNetwork = true}, true, [] {
    EXPECT_TRUE(canBind());
    EXPECT_EQ(::kill(::getppid(), 0) == 0, version() < 6);
  });
}

TEST_F(FileFenceTest, aKernelWithoutOneIsNamed) {
  const int status = fixtures::exitStatusOf([] {
    void* filter = ::seccomp_init(SCMP_ACT_ALLOW);
    const bool isRefused =
        ::seccomp_rule_add(filter, SCMP_ACT_ERRNO(EOPNOTSUPP), SCMP_SYS(landlock_create_ruleset), 0) == 0 &&
        ::seccomp_load(filter) == 0;
    ::seccomp_release(filter);
    return isRefused && !fenceFiles({}) && errno == EOPNOTSUPP ? 0 : 1;
  });
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace tarnwell::confinement
