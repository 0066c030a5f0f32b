#include "updater/schedule/UpdaterPreferences.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <vector>

#include "fixtures/CommaLocale.h"
#include "fixtures/EnvironmentScope.h"
#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "fixtures/WaitFor.h"
#include "system/Descriptor.h"

namespace tarnwell::updater {
namespace {

using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::seconds;

struct Setting {
  fixtures::Sandbox sandbox;
  std::filesystem::path file = sandbox / "updates.plist";
  UpdaterPreferences preferences{file};

  void writeDictionary(const std::string& content) const {
    sandbox.write("updates.plist", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>" +
                                       content + "</dict></plist>");
  }
  std::string text() const { return sandbox.read("updates.plist"); }
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
  EXPECT_TRUE(contains(setting.text(), "<key>SULastCheckTime</key>\n\t<date>2026-11-21T10:00:03Z</date>"));
}

TEST(UpdaterPreferences, keepTimesBeforeTheirFirstDay) {
  const Setting setting;
  const UpdaterPreferences::Time start{};
  EXPECT_TRUE(setting.preferences.setLastCheck(start));
  EXPECT_EQ(setting.preferences.lastCheck(), start);
}

TEST(UpdaterPreferences, haveOneListInTheUsersConfiguration) {
  const fixtures::Sandbox sandbox;
  const fixtures::EnvironmentScope home("XDG_CONFIG_HOME", sandbox / "config");
  EXPECT_TRUE(UpdaterPreferences::ofUser().setAutomaticChecks(true));
  EXPECT_TRUE(contains(sandbox.read("config/tarnwell/updates.plist"), "<key>SUEnableAutomaticChecks</key>\n\t<true/>"));
}

TEST(UpdaterPreferences, fallBackOnTheHomeFolder) {
  const fixtures::Sandbox sandbox;
  const fixtures::EnvironmentScope home("HOME", sandbox.path());
  const fixtures::EnvironmentScope relative("XDG_CONFIG_HOME", "config");
  EXPECT_TRUE(UpdaterPreferences::ofUser().setAutomaticChecks(true));
  EXPECT_TRUE(sandbox.holds(".config/tarnwell/updates.plist"));
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
      {"<integer>7200</integer>", seconds(7200)},
      {"<integer>3600</integer>", seconds(3600)},
      {"<integer>3599</integer>", seconds(3600)},
      {"<integer>0</integer>", seconds(3600)},
      {"<integer>-5</integer>", seconds(86400)},
      {"<integer>9223372036854775807</integer>", seconds(86400)},
      {"<integer>18446744073709551615</integer>", seconds(86400)},
      {"<string>7200</string>", seconds(86400)},
      {"<real>7200.0</real>", seconds(86400)},
  };
  for (const auto& [value, expected] : rows) {
    setting.writeDictionary("<key>SUScheduledCheckInterval</key>" + value);
    EXPECT_EQ(setting.preferences.interval(), expected) << value;
  }
}

TEST(UpdaterPreferences, passOverValuesOfAnotherType) {
  const Setting setting;
  setting.writeDictionary(
      "<key>SUEnableAutomaticChecks</key><string>yes</string><key>SUAutomaticallyUpdate</key><integer>1</integer>"
      "<key>SULastCheckTime</key><integer>5</integer><key>SUSkippedVersion</key><array/>"
      "<key>SUHasLaunchedBefore</key><dict/>");
  EXPECT_EQ(setting.preferences.automaticChecks(), std::nullopt);
  EXPECT_FALSE(setting.preferences.automaticDownloads());
  EXPECT_EQ(setting.preferences.lastCheck(), std::nullopt);
  EXPECT_EQ(setting.preferences.skippedVersion(), "");
  EXPECT_FALSE(setting.preferences.hasLaunchedBefore());
  EXPECT_TRUE(setting.preferences.setAutomaticChecks(true));
  EXPECT_EQ(setting.preferences.automaticChecks(), true);
}

TEST(UpdaterPreferences, leaveWhatIsNotTheirs) {
  const Setting setting;
  const std::vector<std::string> values = {"<string>text</string>",     "<integer>-3</integer>",
                                           "<real>0.25</real>",         "<date>2026-01-02T03:04:05Z</date>",
                                           "<data>\n\tAQID\n\t</data>", "<true/>"};
  std::string content;
  for (const std::string& value : values) {
    content += "<key>a" + std::to_string(content.size()) + "</key>" + value;
  }
  setting.writeDictionary(content + "<key>list</key><array><dict><key>b</key><string>c</string></dict></array>");
  const fixtures::CommaLocale locale;
  EXPECT_TRUE(setting.preferences.setAutomaticChecks(true));
  for (const std::string& value : values) {
    EXPECT_TRUE(contains(setting.text(), value)) << value << " in\n" << setting.text();
  }
  EXPECT_TRUE(contains(setting.text(), "<string>c</string>"));
}

TEST(UpdaterPreferences, takeAListHoweverManyItHoldsSideBySide) {
  const Setting setting;
  std::string siblings;
  for (int count = 0; count < 100; ++count) {
    siblings += "<array/><dict/><array></array>";
  }
  setting.sandbox.write("updates.plist",
                        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST "
                        "1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n<plist version=\"1.0\">\n<dict>"
                        "<!-- a word --><key>theirs</key><array>" +
                            siblings +
                            "</array><key>SUEnableAutomaticChecks</key> <true/>\n<key>date</key>"
                            "<date>2026-01-02T03:04:05Z</date></dict>\n</plist>\n");
  EXPECT_EQ(setting.preferences.automaticChecks(), true);
  EXPECT_TRUE(setting.preferences.setAutomaticChecks(false));
  EXPECT_TRUE(contains(setting.text(), "<key>theirs</key>"));
  EXPECT_EQ(setting.preferences.automaticChecks(), false);
}

std::vector<std::string> damagedLists() {
  std::string deep;
  for (int level = 0; level < 100'000; ++level) {
    deep += "<array>";
  }
  const std::string head = "<?xml version=\"1.0\"?><plist version=\"1.0\">";
  return {"",
          "no list",
          "SUEnableAutomaticChecks=1\n",
          head,
          head + "<dict><key>SUEnableAutomaticChecks</key><tr",
          head + "<array/></plist>",
          head + "<string>a</string></plist>",
          "bplist00",
          head + "<dict></dict>",
          head + "<dict></dict></plist>junk",
          head + "<dict></dict></plist>" + std::string(3, '\0'),
          head + "<dict><key>a</key><integer>zzz</integer></dict></plist>",
          head + "<dict><key>a</key><integer>99999999999999999999</integer></dict></plist>",
          head + "<dict><key>a</key><integer/></dict></plist>",
          head + "<dict><key>a</key><real>0,5</real></dict></plist>",
          head + "<dict><key>a</key><date>gar</date></dict></plist>",
          head + "<dict><key>a</key></dict></plist>",
          head + "<dict><true/></dict></plist>",
          head + "<dict><key>a</key><true>b</true></dict></plist>",
          head + "<dict><key>a</key><other/></dict></plist>",
          head + "<dict><key>a</key>b<true/></dict></plist>",
          head + "<dict/><dict/></plist>",
          "<!DOCTYPE plist [<!ENTITY e 'a'>]><plist version=\"1.0\"><dict/></plist>",
          head + deep,
          head + "<dict><key>a</key><string>" + std::string(2'000'000, 'x') + "</string></dict></plist>",
          std::string(100, '\0')};
}

TEST(UpdaterPreferences, setADamagedListAside) {
  for (const std::string& damaged : damagedLists()) {
    const Setting setting;
    setting.sandbox.write("updates.plist", damaged);
    testing::internal::CaptureStderr();
    EXPECT_EQ(setting.preferences.automaticChecks(), std::nullopt);
    EXPECT_TRUE(setting.preferences.setAutomaticChecks(true));
    EXPECT_EQ(
        testing::internal::GetCapturedStderr(),
        "tarnwell: " + setting.file.string() + " is damaged; it is kept as " + setting.file.string() + ".damaged-1\n");
    EXPECT_EQ(setting.sandbox.read("updates.plist.damaged-1"), damaged);
    EXPECT_EQ(setting.preferences.automaticChecks(), true);
  }
}

TEST(UpdaterPreferences, setEachDamagedListAsideUnderANameOfItsOwn) {
  const Setting setting;
  testing::internal::CaptureStderr();
  for (const std::string damaged : {"one", "two"}) {
    setting.sandbox.write("updates.plist", damaged);
    EXPECT_TRUE(setting.preferences.setAutomaticChecks(true));
  }
  EXPECT_TRUE(contains(testing::internal::GetCapturedStderr(), ".damaged-2"));
  EXPECT_EQ(setting.sandbox.read("updates.plist.damaged-1"), "one");
  EXPECT_EQ(setting.sandbox.read("updates.plist.damaged-2"), "two");
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
  const auto result = UpdaterPreferences(sandbox / "file" / "updates.plist").setAutomaticChecks(true);
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error().message,
            "cannot write " + (sandbox / "file" / "updates.plist").string() + ": Not a directory");
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
  const system::Descriptor lock(
      ::open((setting.file.parent_path() / ".updates.plist.lock").c_str(), O_RDWR | O_CLOEXEC));
  ASSERT_EQ(::flock(lock.number(), LOCK_EX), 0);
  const auto result = setting.preferences.setSkippedVersion("2.0");
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error().message,
            "cannot write " + setting.file.string() + ": another program does not let go of it");
  EXPECT_EQ(setting.preferences.skippedVersion(), "1.0");
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
}  // namespace tarnwell::updater
