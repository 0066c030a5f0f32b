#include "updater/package/DesktopInstaller.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <system_error>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "fixtures/WaitFor.h"
#include "updater/package/ForkedWorker.h"
#include "updater/package/RunningAppImage.h"

namespace tarnwell::updater {
namespace {

namespace fs = std::filesystem;

const std::string debianPackage = "!<arch>\ndebian-binary   1700000000  0     0     100644  4         `\n2.0\n";
const std::string appImage = std::string(
                                 "\x7f"
                                 "ELF\x02\x01\x01\x00"
                                 "AI\x02",
                                 11) +
                             std::string(1'000'000, 'x');

class DesktopInstallerTest : public testing::Test {
 protected:
  DesktopInstallerTest() { makeOpener("exit 0"); }

  /// An xdg-open that notes what it is given and then runs `ending`.
  void makeOpener(const std::string& ending) const {
    sandbox.write("xdg-open", "#!/bin/sh\ncat \"$1\" >>" + (sandbox / "opened").string() + "\necho \"$1\" >>" +
                                  (sandbox / "names").string() + "\n" + ending + "\n");
    fs::permissions(sandbox / "xdg-open", fs::perms::owner_all);
  }

  PackageFile package(const std::string& content) const {
    auto created = PackageFile::create(sandbox / "cache");
    auto file = *std::move(created);
    EXPECT_FALSE(file.append(content));
    return file;
  }

  bool becomes(const std::function<bool()>& condition) {
    return fixtures::waitFor([&] {
      worker.dispatch();
      installer->dispatch();
      return condition();
    });
  }

  static std::string textOf(const system::Result<HandOver>& result) {
    if (!result) {
      return result.error().message;
    }
    return *result == HandOver::opened ? "opened" : "replaced";
  }

  /// "opened" or "replaced" when the package was handed over.
  std::string outcomeOf(const PackageFile& file) {
    std::optional<std::string> outcome;
    const auto begun = installer->install({.title = "../evil", .enclosure = {.url = "https://x/evil.sh"}}, file,
                                          [&](const system::Result<HandOver>& result) { outcome = textOf(result); });
    EXPECT_FALSE(outcome.has_value());
    if (!begun) {
      return "for good: " + begun.error().message;
    }
    EXPECT_TRUE(becomes([&] { return outcome.has_value(); }));
    return outcome.value_or("nothing came");
  }

  /// As far as it gets until `condition` holds; then it is cancelled.
  void cancelWhen(const PackageFile& file, const std::function<bool()>& condition) {
    const auto begun = installer->install({}, file, [](const auto& /*result*/) { ADD_FAILURE(); });
    EXPECT_TRUE(begun);
    EXPECT_TRUE(becomes(condition));
  }

  void use(DesktopInstaller::Settings settings) { installer.emplace(std::move(settings), worker); }

  /// Whether a child of ours has a file of this folder open, be it one without a name.
  static bool isWrittenIn(const fs::path& folder) {
    std::ifstream children("/proc/self/task/" + std::to_string(::getpid()) + "/children");
    for (pid_t child = 0; children >> child;) {
      std::error_code gone;
      for (const auto& entry : fs::directory_iterator("/proc/" + std::to_string(child) + "/fd", gone)) {
        if (fs::read_symlink(entry, gone).parent_path() == folder) {
          return true;
        }
      }
    }
    return false;
  }

  static bool hasChildren() { return ::waitid(P_ALL, 0, nullptr, WEXITED | WNOHANG | WNOWAIT) == 0 || errno != ECHILD; }

  fixtures::Sandbox sandbox;
  fixtures::EnvironmentScope path{"PATH", sandbox.path().string() + ":/usr/bin:/bin"};
  ForkedWorker worker;
  std::optional<DesktopInstaller> installer{std::in_place, DesktopInstaller::Settings{}, worker};
};

TEST_F(DesktopInstallerTest, aDebianPackageIsHandedToTheDesktopUnderOurOwnName) {
  const PackageFile file = package(debianPackage);
  EXPECT_EQ(outcomeOf(file), "opened");
  EXPECT_EQ(sandbox.read("opened"), debianPackage);
  EXPECT_EQ(sandbox.read("names"), (sandbox / "cache/tarnwell-update.deb").string() + "\n");
  EXPECT_TRUE(becomes([] { return !hasChildren(); }));
}

TEST_F(DesktopInstallerTest, aDesktopThatOpensNoPackagesIsAFailure) {
  makeOpener("exit 3");
  const PackageFile file = package(debianPackage);
  EXPECT_EQ(outcomeOf(file), "No program on this system opens Debian packages. Install one that does, and try again.");
  EXPECT_TRUE(becomes([] { return !hasChildren(); }));
  EXPECT_TRUE(fs::is_empty(sandbox / "cache"));
}

TEST_F(DesktopInstallerTest, withoutADesktopItIsAFailure) {
  const fixtures::EnvironmentScope nowhere("PATH", sandbox / "nowhere");
  const PackageFile file = package(debianPackage);
  EXPECT_EQ(outcomeOf(file),
            "The package could not be opened: cannot start xdg-open: No such file or directory. Install the program, "
            "which is in the package xdg-utils, and try again.");
  EXPECT_TRUE(fs::is_empty(sandbox / "cache"));
}

TEST_F(DesktopInstallerTest, aDesktopThatStaysWithThePackageIsNotWaitedFor) {
  use({.patience = std::chrono::milliseconds(50)});
  makeOpener("while [ ! -e " + (sandbox / "released").string() + " ]; do sleep 0.01; done; exit 4");
  const PackageFile file = package(debianPackage);
  EXPECT_EQ(outcomeOf(file), "opened");
  EXPECT_TRUE(hasChildren());
  sandbox.write("released", "");
  EXPECT_TRUE(becomes([] { return !hasChildren(); }));
}

TEST_F(DesktopInstallerTest, theAppImageThatRunsIsReplaced) {
  sandbox.write("Tarnwell.AppImage", "old");
  fs::permissions(sandbox / "Tarnwell.AppImage", fs::perms(0750));
  use({.appImage = sandbox / "Tarnwell.AppImage"});
  const PackageFile file = package(appImage);
  EXPECT_EQ(outcomeOf(file), "replaced");
  EXPECT_EQ(sandbox.read("Tarnwell.AppImage"), appImage);
  EXPECT_EQ(fs::status(sandbox / "Tarnwell.AppImage").permissions(), fs::perms(0750));
  EXPECT_FALSE(sandbox.holds("opened"));
  EXPECT_TRUE(fs::is_empty(sandbox / "cache"));
}

TEST_F(DesktopInstallerTest, aDesktopWhoseEndCannotBeSeenKeepsThePackage) {
  use({.patience = std::chrono::minutes(5)});
  makeOpener("while [ ! -e " + (sandbox / "released").string() + " ]; do sleep 0.01; done; exit 4");
  EXPECT_EQ(fixtures::exitStatusOf([this] {
              ::signal(SIGCHLD, SIG_IGN);
              const PackageFile file = package(debianPackage);
              std::string outcome;
              const auto begun = installer->install({}, file, [&](const auto& result) { outcome = textOf(result); });
              // It ends when it is being watched, which it has to live for.
              const bool isOpen = becomes([this] { return sandbox.holds("names"); });
              sandbox.write("released", "");
              const bool isTold = becomes([&outcome] { return !outcome.empty(); });
              return isOpen && isTold && outcome == "opened" && sandbox.holds("cache/tarnwell-update.deb") ? 0 : 1;
            }),
            0);
}

TEST_F(DesktopInstallerTest, whatIsCancelledBeforeItIsOpenedLeavesNothingBehind) {
  const PackageFile file = package(debianPackage);
  const auto begin = [&] {
    auto begun = installer->install({}, file, [](const auto& /*result*/) { ADD_FAILURE(); });
    return *std::move(begun);
  };
  for (int round = 0; round < 10; ++round) {
    begin().reset();
    EXPECT_TRUE(fs::is_empty(sandbox / "cache"));
    auto named = begin();
    EXPECT_TRUE(fixtures::waitFor([this] { return sandbox.holds("cache/tarnwell-update.deb"); }));
    named.reset();
    EXPECT_TRUE(fs::is_empty(sandbox / "cache"));
  }
  EXPECT_TRUE(becomes([] { return !hasChildren(); }));
  EXPECT_FALSE(sandbox.holds("opened"));
}

TEST_F(DesktopInstallerTest, aPackageThatIsOpenAlreadyIsLeftToTheDesktop) {
  makeOpener("while [ ! -e " + (sandbox / "released").string() + " ]; do sleep 0.01; done; exit 4");
  const PackageFile file = package(debianPackage);
  cancelWhen(file, [this] { return sandbox.holds("names"); });
  EXPECT_TRUE(sandbox.holds("cache/tarnwell-update.deb"));
  sandbox.write("released", "");
  EXPECT_TRUE(becomes([] { return !hasChildren(); }));
}

TEST_F(DesktopInstallerTest, aNewAppImageLosesSetUserAndSetGroup) {
  sandbox.write("Tarnwell.AppImage", "old");
  fs::permissions(sandbox / "Tarnwell.AppImage", fs::perms(07751));
  use({.appImage = sandbox / "Tarnwell.AppImage"});
  const PackageFile file = package(appImage);
  EXPECT_EQ(outcomeOf(file), "replaced");
  EXPECT_EQ(fs::status(sandbox / "Tarnwell.AppImage").permissions(), fs::perms(0751));
}

TEST_F(DesktopInstallerTest, anAppImageThatIsGoneOrNoFileIsNotReplaced) {
  const PackageFile file = package(appImage);
  const auto refusal = [](const fs::path& target, const std::string& reason) {
    return "for good: The new version cannot take the place of " + target.string() + ": " + reason +
           ". Get the new version from where you got Tarnwell.";
  };
  use({.appImage = sandbox / "gone/Tarnwell.AppImage"});
  EXPECT_EQ(outcomeOf(file), refusal(sandbox / "gone/Tarnwell.AppImage", "No such file or directory"));
  use({.appImage = sandbox / "gone.AppImage"});
  EXPECT_EQ(outcomeOf(file), refusal(sandbox / "gone.AppImage", "No such file or directory"));
  sandbox.write("kept", "old");
  fs::create_symlink(sandbox / "kept", sandbox / "link");
  use({.appImage = sandbox / "link"});
  EXPECT_EQ(outcomeOf(file), refusal(sandbox / "link", "it is not a file"));
  EXPECT_EQ(sandbox.read("kept"), "old");
}

TEST_F(DesktopInstallerTest, aCopyThatBreaksOffLeavesTheOldAppImageInItsPlace) {
  fs::create_directory(sandbox / "programs");
  sandbox.write("programs/Tarnwell.AppImage", "old");
  use({.appImage = sandbox / "programs/Tarnwell.AppImage"});
  const PackageFile file = package(appImage);
  EXPECT_EQ(fixtures::exitStatusOf([&] {
              // Default signals are what the copy has; a file that grows beyond the limit ends it.
              const rlimit room = {.rlim_cur = 500'000, .rlim_max = 500'000};
              ::setrlimit(RLIMIT_FSIZE, &room);
              return outcomeOf(file).starts_with("The work on the update was interrupted") ? 0 : 1;
            }),
            0);
  EXPECT_EQ(sandbox.read("programs/Tarnwell.AppImage"), "old");
}

TEST_F(DesktopInstallerTest, anAppImageThatCannotBeReplacedNowMayBeTriedAgain) {
  // A file in a folder in which none can be made.
  use({.appImage = "/proc/self/comm"});
  const PackageFile file = package(appImage);
  const std::string outcome = outcomeOf(file);
  EXPECT_TRUE(outcome.starts_with("The new version cannot take the place of /proc/self/comm: ")) << outcome;
  EXPECT_TRUE(
      outcome.ends_with("The version that you have was left as it is. See that there is room and that you may "
                        "write there, and try again."))
      << outcome;
}

TEST_F(DesktopInstallerTest, aReplacementThatIsCancelledLeavesNothingBehind) {
  fs::create_directory(sandbox / "programs");
  sandbox.write("programs/Tarnwell.AppImage", "old");
  use({.appImage = sandbox / "programs/Tarnwell.AppImage"});
  // So large that it is still on its way when it is cancelled.
  PackageFile file = package(appImage);
  const std::string more(1 << 20, 'x');
  for (int part = 0; part < 64; ++part) {
    EXPECT_FALSE(file.append(more));
  }
  cancelWhen(file, [this] { return isWrittenIn(sandbox / "programs"); });
  EXPECT_TRUE(becomes([] { return !hasChildren(); }));
  EXPECT_EQ(sandbox.read("programs/Tarnwell.AppImage"), "old");
  EXPECT_EQ(std::distance(fs::directory_iterator(sandbox / "programs"), fs::directory_iterator()), 1);
}

TEST_F(DesktopInstallerTest, anAppImageIsNothingForAnInstalledProgram) {
  const PackageFile file = package(appImage);
  EXPECT_EQ(outcomeOf(file),
            "for good: The update is an AppImage, but Tarnwell does not run from one. Get the package for your system "
            "from where you got Tarnwell.");
}

TEST_F(DesktopInstallerTest, anythingElseIsRefused) {
  for (const std::string content : {"", "#!/bin/sh\n",
                                    "\x7f"
                                    "ELF",
                                    "!<arch>\n"}) {
    const PackageFile file = package(content);
    EXPECT_EQ(outcomeOf(file),
              "for good: The update is neither a Debian package nor an AppImage, and cannot be installed on this "
              "system.");
  }
  EXPECT_FALSE(sandbox.holds("opened"));
}

TEST_F(DesktopInstallerTest, onlyTheAppImageOfThisProgramIsItsOwn) {
  fs::create_directories(sandbox / "mounted/usr/bin");
  sandbox.write("Some.AppImage", "");
  const fs::path root = fs::canonical(sandbox.path());
  const fixtures::EnvironmentScope image("APPIMAGE", (sandbox / "Some.AppImage").string());
  EXPECT_FALSE(runningAppImage(root / "mounted/usr/bin/tarnwell"));
  const fixtures::EnvironmentScope mounted("APPDIR", (sandbox / "mounted").string());
  EXPECT_EQ(runningAppImage(root / "mounted/usr/bin/tarnwell"), root / "Some.AppImage");
  // Started from the terminal of another AppImage.
  EXPECT_FALSE(runningAppImage("/usr/bin/tarnwell"));
  EXPECT_FALSE(runningAppImage(root / "mounted-not/tarnwell"));
  const fixtures::EnvironmentScope gone("APPIMAGE", (sandbox / "Gone.AppImage").string());
  EXPECT_FALSE(runningAppImage(root / "mounted/usr/bin/tarnwell"));
}

}  // namespace
}  // namespace tarnwell::updater
