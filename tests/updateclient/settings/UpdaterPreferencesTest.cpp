#include "updateclient/settings/UpdaterPreferences.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <vector>

#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "fixtures/WaitFor.h"
#include "system/base/Descriptor.h"

namespace tarnwell::updateclient {
namespace {

using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::seconds;

struct Setting {
  fixtures::Sandbox sandbox;
  std::filesystem::path file = sandbox / "updates";
  UpdaterPreferences preferences{file};

  void write(const std::string& lines) const { sandbox.write("updates", lines); }
  std::string text() const { return sandbox.read("updates"); }
};

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

TEST(UpdaterPreferences, startWithNothingDecided) {
  const Setting setting;
  EXPECT_EQ(setting.preferences.automaticChecks(), std::nullopt);
  EXPECT_FALSE(setting.preferences.automaticDownloads());
  EXPECT_EQ(setting.preferences.lastCheck(), std::nullopt);
  EXPECT_EQ(setting.preferences.interval(), seconds(86400));
  EXPECT_EQ(setting.preferences.skippedVersion(), "");
  EXPECT_FALSE(setting.preferences.hasLaunchedBefore());
  EXPECT_FALSE(std::filesystem::exists(setting.file));
}

TEST(UpdaterPreferences, keepWhatTheyWereTold) {
  const Setting setting;
  const auto time = std::chrono::sys_days(std::chrono::year(2026) / 11 / 21) + hours(10) + seconds(3);
  EXPECT_TRUE(setting.preferences.setAutomaticChecks(false));
  EXPECT_TRUE(setting.preferences.setAutomaticDownloads(true));
  EXPECT_TRUE(setting.preferences.setLastCheck(time + milliseconds(999)));
  EXPECT_TRUE(setting.preferences.setSkippedVersion("1.2 <beta> & \xc3\xa4"));
  EXPECT_TRUE(setting.preferences.setHasLaunchedBefore());
  const UpdaterPreferences next(setting.file);
  EXPECT_EQ(next.automaticChecks(), false);
  EXPECT_TRUE(next.automaticDownloads());
  EXPECT_EQ(next.lastCheck(), time);
  EXPECT_EQ(next.skippedVersion(), "1.2 <beta> & \xc3\xa4");
  EXPECT_TRUE(next.hasLaunchedBefore());
  EXPECT_EQ(setting.text(),
            "automatic-checks no\nautomatic-downloads yes\nlast-check 1795255203\nlaunched-before yes\n"
            "skipped-version 1.2 <beta> & \xc3\xa4\n");
}

TEST(UpdaterPreferences, seeWhatAnotherProcessWrote) {
  const Setting setting;
  EXPECT_TRUE(setting.preferences.setAutomaticChecks(true));
  EXPECT_TRUE(UpdaterPreferences(setting.file).setAutomaticChecks(false));
  EXPECT_EQ(setting.preferences.automaticChecks(), false);
}

TEST(UpdaterPreferences, takeNoIntervalThatIsTooShortOrAbsurd) {
  const Setting setting;
  const std::vector<std::pair<std::string, seconds>> rows = {
      {"7200", seconds(7200)},
      {"3600", seconds(3600)},
      {"3599", seconds(3600)},
      {"0", seconds(3600)},
      {"-5", seconds(86400)},
      {"9223372036854775807", seconds(86400)},
      {"18446744073709551616", seconds(86400)},
      {"", seconds(86400)},
      {" 7200", seconds(86400)},
      {"7200.0", seconds(86400)},
  };
  for (const auto& [value, expected] : rows) {
    setting.write("check-interval " + value + "\n");
    EXPECT_EQ(setting.preferences.interval(), expected) << value;
  }
}

TEST(UpdaterPreferences, passOverValuesThatAreNone) {
  const Setting setting;
  setting.write("automatic-checks true\nautomatic-downloads 1\nlast-check -5\nlaunched-before \n");
  EXPECT_EQ(setting.preferences.automaticChecks(), std::nullopt);
  EXPECT_FALSE(setting.preferences.automaticDownloads());
  EXPECT_EQ(setting.preferences.lastCheck(), std::nullopt);
  EXPECT_EQ(setting.preferences.skippedVersion(), "");
  EXPECT_FALSE(setting.preferences.hasLaunchedBefore());
  for (const char* year : {"71795255203", "9999999999999999"}) {
    setting.write("last-check " + std::string(year) + "\n");
    EXPECT_EQ(setting.preferences.lastCheck(), std::nullopt);
  }
  EXPECT_TRUE(setting.preferences.setAutomaticChecks(true));
  EXPECT_EQ(setting.preferences.automaticChecks(), true);
}

TEST(UpdaterPreferences, leaveWhatIsNotTheirs) {
  const Setting setting;
  setting.write("of-a-later-version some \\n text\n");
  EXPECT_TRUE(setting.preferences.setAutomaticChecks(true));
  EXPECT_EQ(setting.text(), "automatic-checks yes\nof-a-later-version some \\n text\n");
}

const std::vector<std::string> damagedFiles = {"no-line-end yes",
                                               "automatic-checks yes\n\n",
                                               "automatic-checks=yes\n",
                                               "automatic-checks\n",
                                               "automatic-checks yes\nautomatic-checks no\n",
                                               "automatic-checks yes\nsecond li",
                                               "name \xff\n",
                                               "name \\x\n",
                                               std::string(100, '\0'),
                                               "name " + std::string(2'000'000, 'x') + "\n"};

TEST(UpdaterPreferences, setADamagedFileAside) {
  for (const std::string& damaged : damagedFiles) {
    const Setting setting;
    setting.sandbox.write("updates", damaged);
    testing::internal::CaptureStderr();
    EXPECT_EQ(setting.preferences.automaticChecks(), std::nullopt);
    EXPECT_TRUE(setting.preferences.setAutomaticChecks(true));
    EXPECT_EQ(
        testing::internal::GetCapturedStderr(),
        "tarnwell: " + setting.file.string() + " is damaged; it is kept as " + setting.file.string() + ".damaged-1\n");
    EXPECT_EQ(setting.sandbox.read("updates.damaged-1"), damaged);
    EXPECT_EQ(setting.preferences.automaticChecks(), true);
  }
}

TEST(UpdaterPreferences, setEachDamagedFileAsideUnderANameOfItsOwn) {
  const Setting setting;
  testing::internal::CaptureStderr();
  for (const std::string damaged : {"one", "two"}) {
    setting.sandbox.write("updates", damaged);
    EXPECT_TRUE(setting.preferences.setAutomaticChecks(true));
  }
  EXPECT_TRUE(contains(testing::internal::GetCapturedStderr(), ".damaged-2"));
  EXPECT_EQ(setting.sandbox.read("updates.damaged-1"), "one");
  EXPECT_EQ(setting.sandbox.read("updates.damaged-2"), "two");
}

TEST(UpdaterPreferences, leaveAloneWhatCannotBeRead) {
  const Setting setting;
  std::filesystem::create_directory(setting.file);
  testing::internal::CaptureStderr();
  EXPECT_EQ(setting.preferences.automaticChecks(), std::nullopt);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "tarnwell: cannot read " + setting.file.string() + ": it is not a file\n");
  const auto result = setting.preferences.setAutomaticChecks(true);
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error().message, "cannot read " + setting.file.string() + ": it is not a file");
  EXPECT_TRUE(std::filesystem::is_directory(setting.file));
}

TEST(UpdaterPreferences, doNotWaitForAPipe) {
  const Setting setting;
  ASSERT_EQ(::mkfifo(setting.file.c_str(), 0600), 0);
  EXPECT_FALSE(setting.preferences.setAutomaticChecks(true));
}

TEST(UpdaterPreferences, sayWhyTheyCannotBeKept) {
  const fixtures::Sandbox sandbox;
  sandbox.write("file", "");
  const auto result = UpdaterPreferences(sandbox / "file" / "updates").setAutomaticChecks(true);
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error().message, "cannot write " + (sandbox / "file" / "updates").string() + ": Not a directory");
}

TEST(UpdaterPreferences, loseNothingOnAFullDisk) {
  const Setting setting;
  EXPECT_TRUE(setting.preferences.setAutomaticChecks(true));
  const int status = fixtures::exitStatusOf([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit room = {.rlim_cur = 16, .rlim_max = 16};
    ::setrlimit(RLIMIT_FSIZE, &room);
    return setting.preferences.setAutomaticDownloads(true) ? 1 : 0;
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(setting.preferences.automaticChecks(), true);
  EXPECT_FALSE(setting.preferences.automaticDownloads());
}

TEST(UpdaterPreferences, doNotWaitForWhoDoesNotLetGo) {
  const Setting setting;
  EXPECT_TRUE(setting.preferences.setSkippedVersion("1.0"));
  const system::Descriptor lock(::open((setting.file.parent_path() / ".updates.lock").c_str(), O_RDWR | O_CLOEXEC));
  ASSERT_EQ(::flock(lock.number(), LOCK_EX), 0);
  const auto result = setting.preferences.setSkippedVersion("2.0");
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error().message,
            "cannot write " + setting.file.string() + ": another program does not let go of it");
  EXPECT_EQ(setting.preferences.skippedVersion(), "1.0");
}

/// One that has the lock for as long as the reader has not yet seen the damage. A second is all that the reader waits.
bool isReadWhenMendedMeanwhile() {
  const Setting setting;
  setting.write("damaged");
  const system::Descriptor lock(
      ::open((setting.sandbox / ".updates.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
  const system::Descriptor looks(::inotify_init1(IN_CLOEXEC));
  EXPECT_EQ(::flock(lock.number(), LOCK_EX), 0);
  EXPECT_GE(::inotify_add_watch(looks.number(), setting.file.c_str(), IN_CLOSE_NOWRITE), 0);
  const pid_t reader = ::fork();
  if (reader == 0) {
    ::_exit(setting.preferences.automaticChecks() == true ? 0 : 1);
  }
  EXPECT_TRUE(looks.readPart());
  setting.write("automatic-checks yes\n");
  EXPECT_EQ(::flock(lock.number(), LOCK_UN), 0);
  int status = -1;
  EXPECT_EQ(::waitpid(reader, &status, 0), reader);
  return status == 0 && !setting.sandbox.holds("updates.damaged-1");
}

TEST(UpdaterPreferences, readWhatAnotherProcessHasMendedMeanwhile) {
  EXPECT_TRUE(fixtures::waitFor(&isReadWhenMendedMeanwhile));
}

/// Two processes write a key each, again and again, and look after each write whether all of theirs are still there. A
/// write may say that it gave up: on a busy machine the other process can have the lock at every look.
TEST(UpdaterPreferences, ofTwoProcessesDoNotLoseEachOthersWrites) {
  const Setting setting;
  const auto writesVersions = [&](int round) {
    const std::string version = std::to_string(round);
    return fixtures::waitFor([&] { return static_cast<bool>(setting.preferences.setSkippedVersion(version)); }) &&
           setting.preferences.skippedVersion() == version;
  };
  const auto writesTimes = [&](int round) {
    const UpdaterPreferences::Time time{seconds(round)};
    return fixtures::waitFor([&] { return static_cast<bool>(setting.preferences.setLastCheck(time)); }) &&
           setting.preferences.lastCheck() == time;
  };
  const auto start = [](const std::function<bool(int)>& writes) {
    const pid_t process = ::fork();
    if (process == 0) {
      int round = 0;
      while (round < 100 && writes(round)) {
        ++round;
      }
      ::_exit(round == 100 ? 0 : 1);
    }
    return process;
  };
  for (const pid_t process : {start(writesVersions), start(writesTimes)}) {
    int status = -1;
    ASSERT_EQ(::waitpid(process, &status, 0), process);
    EXPECT_EQ(status, 0);
  }
}

}  // namespace
}  // namespace tarnwell::updateclient
