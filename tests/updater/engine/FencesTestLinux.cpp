#include "updater/engine/Fences.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <gnu/libc-version.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "release/protocol/Engine.h"
#include "system/base/Descriptor.h"
#include "updater/package/PackageClaim.h"

namespace tarnwell::updater {
namespace {

namespace fs = std::filesystem;

using namespace std::chrono_literals;

constexpr std::uint64_t mebibyte = 1024UL * 1024;

struct FencedJob {
  std::vector<std::string> (*fence)(std::chrono::seconds limit) = nullptr;
  std::uint64_t memory = 0;
  std::uint64_t fileSize = 0;
  unsigned seconds = 0;
};

bool isLimited(decltype(RLIMIT_CPU) resource, std::uint64_t most) {
  rlimit limit = {};
  return ::getrlimit(resource, &limit) == 0 && limit.rlim_cur == most && limit.rlim_max == most;
}

bool keepsWithin(const FencedJob& job) {
  const pid_t child = ::fork();
  if (child == 0) {
    job.fence(1min);
    // None is set where a sanitizer needs more than there is.
    const bool isMemory = TARNWELL_IS_SANITIZED || isLimited(RLIMIT_AS, job.memory);
    const bool isFileSize = isLimited(RLIMIT_FSIZE, job.fileSize);
    ::_exit(isMemory && isFileSize && isLimited(RLIMIT_CPU, job.seconds) ? 0 : 1);
  }
  int status = -1;
  return ::waitpid(child, &status, 0) == child && status == 0;
}

TEST(FencesTest, eachJobHasMemoryFilesAndTimeForWhatIsItsOwnAndNotMore) {
  const std::uint64_t package = PackageClaim::maximumLength;
  EXPECT_TRUE(keepsWithin({fenceFetching, 1024 * mebibyte, package, 15 * 60}));
  EXPECT_TRUE(keepsWithin({fenceLooking, 2048 * mebibyte, 0, 2 * 60}));
  EXPECT_TRUE(keepsWithin({fenceReading, 512 * mebibyte, 0, 10}));
  EXPECT_TRUE(keepsWithin({fencePlacing, 1024 * mebibyte, package, 2 * 60}));
}

fs::path libraryFolder() {
  Dl_info library = {};
  EXPECT_NE(::dladdr(reinterpret_cast<const void*>(&::gnu_get_libc_version), &library), 0);
  return fs::path(library.dli_fname).parent_path();
}

bool canRead(const fs::path& path) {
  return static_cast<bool>(system::Descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC)));
}

bool canStart(const fs::path& program) {
  return fixtures::exitStatusOf([&program] {
           const std::string name = program.string();
           const std::array<const char*, 3> words = {name.c_str(), "--version", nullptr};
           return ::execv(name.c_str(), const_cast<char* const*>(words.data()));
         }) == 0;
}

/// What a job keeps of this system, of which there is no more than the fences need for a test.
struct Kept {
  std::vector<fs::path> readable = {};
  std::vector<fs::path> programs = {};
};

const fs::path dpkg = "/usr/bin/dpkg-deb";
const fs::path input = "/proc/self/fd/0";

Kept everythingOfInterest() {
  Kept all = {.readable = {"/etc/hosts", "/etc/nsswitch.conf", "/etc/ssl", "/etc/ssl/certs", "/etc/ld.so.cache",
                           "/dev/null", "/etc/passwd", "/", input, libraryFolder() / "libc.so.6",
                           libraryFolder() / "gconv", libraryFolder()},
              .programs = {dpkg, "/bin/sh", "/usr/bin/env"}};
  std::erase_if(all.readable, [](const fs::path& path) { return !canRead(path); });
  return all;
}

/// In a copy of this process that has given up the rest.
void expectKept(std::vector<std::string> (*fence)(std::chrono::seconds limit), const Kept& kept) {
  const fixtures::Sandbox sandbox;
  sandbox.write("input", "content");
  const int status = fixtures::exitStatusOf([&] {
    ::dup2(::open((sandbox / "input").c_str(), O_RDWR | O_CLOEXEC), release::engineInput);
    ::dup2(::open(sandbox.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC), release::engineFolder);
    const Kept all = everythingOfInterest();
    EXPECT_TRUE(fence(1min).empty());
    for (const fs::path& path : all.readable) {
      EXPECT_EQ(canRead(path), std::find(kept.readable.begin(), kept.readable.end(), path) != kept.readable.end())
          << path;
    }
    for (const fs::path& program : all.programs) {
      EXPECT_EQ(canStart(program),
                std::find(kept.programs.begin(), kept.programs.end(), program) != kept.programs.end())
          << program;
    }
    return testing::Test::HasFailure() ? 1 : 0;
  });
  EXPECT_EQ(status, 0);
}

TEST(FencesTest, eachJobKeepsTheFilesThatItsWorkNeedsAndNoOthers) {
  const fs::path libraries = libraryFolder();
  expectKept(fenceFetching,
             {.readable = {"/etc/hosts", "/etc/nsswitch.conf", "/etc/ssl", "/etc/ssl/certs", "/etc/ld.so.cache",
                           libraries, libraries / "libc.so.6", libraries / "gconv"}});
  expectKept(fenceLooking,
             {.readable = {"/etc/ld.so.cache", "/dev/null", input, libraries / "libc.so.6"}, .programs = {dpkg}});
  expectKept(fenceReading, {});
  expectKept(fencePlacing, {.readable = {input}});
}

TEST(FencesTest, authoritiesOfTheUsersOwnCanBeReadWhereverTheyAre) {
  const fixtures::Sandbox sandbox;
  sandbox.write("own.pem", "content");
  sandbox.write("other.pem", "content");
  for (const char* variable : {"SSL_CERT_FILE", "CURL_CA_BUNDLE"}) {
    const fixtures::EnvironmentScope scope(variable, (sandbox / "own.pem").string());
    const int status = fixtures::exitStatusOf([&sandbox] {
      fenceFetching(1min);
      return canRead(sandbox / "own.pem") && !canRead(sandbox / "other.pem") ? 0 : 1;
    });
    EXPECT_EQ(status, 0) << variable;
  }
}

}  // namespace
}  // namespace tarnwell::updater
