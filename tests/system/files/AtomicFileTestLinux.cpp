#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "fixtures/WaitFor.h"
#include "system/FilterLinux.h"
#include "system/files/AtomicFile.h"
#include "system/files/UnnamedFiles.h"
#include "system/processes/Process.h"

namespace tarnwell::system {
namespace {

/// Whether it is said that a file which has been written is not safe in its folder.
bool isFoundUnsafe(const std::filesystem::path& target) {
  return fixtures::exitStatusOf([&target] {
           AtomicFile file(target, 0600);
           const bool isWritten = file.write("bytes") && refuse(__NR_fsync);
           const auto committed = file.commit();
           return isWritten && !committed && committed.error().error == EIO ? 0 : 1;
         }) == 0;
}

using Step = std::function<Result<void>(AtomicFile&)>;

const std::vector<Step> allSteps = {[](AtomicFile& file) { return file.write("bytes"); }, &AtomicFile::place,
                                    &AtomicFile::commit};

/// Whether it is said that `what` cannot be done where these calls fail from `step` on.
bool saysWhyNot(const std::filesystem::path& target, const std::vector<unsigned>& calls, const Step& before,
                const Step& step, const std::string& what) {
  return fixtures::exitStatusOf([&] {
           AtomicFile file(target, 0600);
           const bool isReady = !before || before(file);
           for (const unsigned call : calls) {
             refuse(call);
           }
           const auto done = step(file);
           const std::string message = "cannot " + what + " " + target.string() + ": Input/output error";
           return isReady && !done && done.error().error == EIO && done.error().message == message ? 0 : 1;
         }) == 0;
}

TEST(AtomicFileTest, saysWhyItCannotBeWrittenOrCopied) {
  const fixtures::Sandbox sandbox;
  sandbox.write("list", "before");
  sandbox.write("from", "bytes");
  const Descriptor from(::open((sandbox / "from").c_str(), O_RDONLY | O_CLOEXEC));
  const Step copy = [&from](AtomicFile& file) { return file.copy(from.number()); };
  const Step& write = allSteps[0];
  struct Row {
    unsigned call;
    const Step& step;
    std::string what;
  };
  const std::vector<Row> rows = {
      {__NR_openat, write, "make a file beside"},
      {__NR_write, write, "write"},
      {__NR_fchmod, write, "write"},
      {__NR_fsync, write, "write"},
      {__NR_lseek, write, "read back what was written for"},
      {__NR_read, write, "read back what was written for"},
      {__NR_openat, copy, "make a file beside"},
      {__NR_pread64, copy, "write"},
      {__NR_write, copy, "write"},
      {__NR_fchmod, copy, "write"},
      {__NR_fsync, copy, "write"},
  };
  for (const Row& row : rows) {
    EXPECT_TRUE(saysWhyNot(sandbox / "list", {row.call}, nullptr, row.step, row.what)) << row.call << row.what;
  }
  EXPECT_EQ(sandbox.read("list"), "before");
  EXPECT_FALSE(sandbox.holds(AtomicFile::passingPath("list").filename()));
}

TEST(AtomicFileTest, saysWhyItCannotBePlaced) {
  const fixtures::Sandbox sandbox;
  sandbox.write("list", "before");
  for (const Step& step : {allSteps[1], allSteps[2]}) {
    EXPECT_TRUE(saysWhyNot(sandbox / "list", {__NR_linkat}, allSteps[0], step, "replace"));
    EXPECT_TRUE(saysWhyNot(sandbox / "list", {__NR_renameat, __NR_renameat2}, allSteps[0], step, "replace"));
  }
  EXPECT_EQ(sandbox.read("list"), "before");
  EXPECT_FALSE(sandbox.holds(AtomicFile::passingPath("list").filename()));
}

TEST(AtomicFileTest, whatReadsDifferentlyIsNotWritten) {
  const fixtures::Sandbox sandbox;
  EXPECT_EQ(fixtures::exitStatusOf([&sandbox] {
              AtomicFile file(sandbox / "list", 0600);
              refuse(__NR_read, 0);
              errno = 0;
              const auto written = file.write("bytes");
              return !written && written.error().error == EIO ? 0 : 1;
            }),
            0);
}

TEST(AtomicFileTest, isForItsUserAloneAndLockedOnItsWay) {
  const fixtures::Sandbox sandbox;
  sandbox.write("list", "before");
  for (const bool isNamed : {false, true}) {
    EXPECT_EQ(fixtures::exitStatusOf([&] {
                AtomicFile file(sandbox / "list", 0644);
                if ((isNamed && !refuseUnnamedFiles()) || !refuse(__NR_fchmod) || file.write("bytes")) {
                  return 1;
                }
                const std::string self = "/proc/self/fd/" + std::to_string(file.descriptor());
                const Descriptor again(::open(self.c_str(), O_RDONLY | O_CLOEXEC));
                struct stat status = {};
                const bool isAlone = ::fstat(again.number(), &status) == 0 && (status.st_mode & 07777U) == 0600;
                return isAlone && ::flock(again.number(), LOCK_EX | LOCK_NB) == -1 && errno == EWOULDBLOCK ? 0 : 2;
              }),
              0)
        << isNamed;
  }
}

/// A file that is locked by this process, and tells whether another one waits for it.
class LockedFile {
 public:
  explicit LockedFile(const std::filesystem::path& path)
      : file_(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
    EXPECT_EQ(::flock(file_.number(), LOCK_EX), 0);
  }
  bool keepsWaiting(const Process& process) const {
    struct stat status = {};
    ::fstat(file_.number(), &status);
    const std::string number = " " + std::to_string(process.number()) + " ";
    const std::string inode = ":" + std::to_string(status.st_ino) + " ";
    std::ifstream locks("/proc/locks");
    for (std::string line; std::getline(locks, line);) {
      if (line.find("->") != std::string::npos && line.find(number) != std::string::npos &&
          line.find(inode) != std::string::npos) {
        return true;
      }
    }
    return false;
  }
  // Copies of this process have it too.
  void unlock() const { EXPECT_EQ(::flock(file_.number(), LOCK_UN), 0); }

 private:
  Descriptor file_;
};

TEST(AtomicFileTest, waitsForEachThatIsOnItsWayBefore) {
  const fixtures::Sandbox sandbox;
  sandbox.write("list", "before");
  const std::filesystem::path passing = AtomicFile::passingPath(sandbox / "list");
  const LockedFile first(passing);
  Process writer(::fork());
  if (writer.number() == 0) {
    AtomicFile file(sandbox / "list", 0600);
    ::_exit(file.write("bytes") && file.place() ? 0 : 1);
  }
  EXPECT_TRUE(fixtures::waitFor([&] { return first.keepsWaiting(writer); }));
  std::filesystem::rename(passing, sandbox / "list");
  const LockedFile second(passing);
  first.unlock();
  EXPECT_TRUE(fixtures::waitFor([&] { return second.keepsWaiting(writer); }));
  second.unlock();
  EXPECT_TRUE(writer.wait().isSuccess());
  EXPECT_EQ(sandbox.read("list"), "bytes");
  EXPECT_FALSE(std::filesystem::exists(passing));
}

/// The exit status of a copy of this process that is told whether these calls, answered so, keep a file from its place.
int statusOf(const Step& step, const std::filesystem::path& target, const std::vector<unsigned>& calls,
             unsigned action) {
  return fixtures::exitStatusOf([&] {
    AtomicFile file(target, 0600);
    if (!file.write("bytes")) {
      return 2;
    }
    for (const unsigned call : calls) {
      answer(call, action);
    }
    return step(file) ? 0 : 1;
  });
}

TEST(AtomicFileTest, itsNameReachesTheDisk) {
  const fixtures::Sandbox sandbox;
  for (const Step& step : {allSteps[1], allSteps[2]}) {
    EXPECT_EQ(statusOf(step, sandbox / "list", {__NR_fsync}, SECCOMP_RET_KILL_PROCESS), -1);
  }
}

TEST(AtomicFileTest, aFolderThatHasNothingToSyncIsSafe) {
  const fixtures::Sandbox sandbox;
  EXPECT_EQ(statusOf(&AtomicFile::commit, sandbox / "list", {__NR_fsync}, SECCOMP_RET_ERRNO | EINVAL), 0);
  EXPECT_EQ(sandbox.read("list"), "bytes");
}

TEST(AtomicFileTest, replacesWhereNamesCannotBeExchanged) {
  const fixtures::Sandbox sandbox;
  for (const std::vector<unsigned>& calls : {std::vector<unsigned>{__NR_renameat2}, {__NR_renameat2, __NR_fsync}}) {
    sandbox.write("list", "before");
    const bool isSafe = calls.size() == 1;
    EXPECT_EQ(statusOf(&AtomicFile::commit, sandbox / "list", calls, SECCOMP_RET_ERRNO | EIO), isSafe ? 0 : 1);
    EXPECT_EQ(sandbox.read("list"), "bytes");
    EXPECT_FALSE(sandbox.holds(AtomicFile::passingPath("list").filename()));
  }
}

TEST(AtomicFileTest, whatWasThereComesBackWhereTheNewFileIsNotSafe) {
  const fixtures::Sandbox sandbox;
  sandbox.write("list", "before");
  EXPECT_TRUE(isFoundUnsafe(sandbox / "list"));
  EXPECT_EQ(sandbox.read("list"), "before");
  EXPECT_FALSE(sandbox.holds(AtomicFile::passingPath("list").filename()));
}

TEST(AtomicFileTest, whatWasNotThereIsGoneWhereItIsNotSafe) {
  const fixtures::Sandbox sandbox;
  EXPECT_TRUE(isFoundUnsafe(sandbox / "list"));
  EXPECT_TRUE(std::filesystem::is_empty(sandbox.path()));
}

}  // namespace
}  // namespace tarnwell::system
