#include "updateclient/installation/Installation.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/EventLoop.h"
#include "fixtures/Processes.h"
#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "fixtures/WaitFor.h"
#include "host/linux/PackageOpener.h"
#include "system/files/AtomicFile.h"
#include "updateclient/engine/EngineProcess.h"
#include "updater/package/PackageClaim.h"
#include "updater/signature/SigningKey.h"

namespace tarnwell::updateclient {
namespace {

namespace fs = std::filesystem;

const std::string debianPackage = "!<arch>\ndebian-binary   1700000000  0     0     100644  4         `\n2.0\n";
const std::string appImage = std::string(
                                 "\x7f"
                                 "ELF\x02\x01\x01\x00"
                                 "AI\x02",
                                 11) +
                             std::string(1'000'000, 'x');

/// With the engine that ships, and a desktop of the test's own.
class InstallationTest : public testing::Test {
 protected:
  InstallationTest() { makeOpener("exit 0"); }

  /// An xdg-open that notes what it is given and then runs `ending`.
  void makeOpener(const std::string& ending) const {
    sandbox.write("xdg-open", "#!/bin/sh\ncat \"$1\" >>" + (sandbox / "opened").string() + "\necho \"$1\" >>" +
                                  (sandbox / "names").string() + "\n" + ending + "\n");
    fs::permissions(sandbox / "xdg-open", fs::perms::owner_all);
  }

  PackageFile package(const std::string& content) const {
    auto file = *PackageFile::create(sandbox / "cache");
    EXPECT_TRUE(file.write(content));
    return file;
  }

  static std::string textOf(const system::Result<HandOver>& result) {
    if (!result) {
      return result.error().message;
    }
    return *result == HandOver::opened ? "opened" : "replaced";
  }

  system::Result<std::unique_ptr<Installation>> start(const PackageFile& file, const std::string& content,
                                                      Installation::Handed handed) {
    const updater::SigningKey key;
    return Installation::start(
        engine, *opener, file,
        {.way = content == debianPackage ? debianWay : appImageWay,
         .item = {.version = "2.0",
                  .enclosure = {.length = content.size(), .signature = key.signatureOf(content)},
                  .releaseSignature = key.signatureOf(*updater::releaseText("2.0", file.descriptor()))},
         .key = key.publicText(),
         .program = image},
        std::move(handed));
  }

  /// "opened" or "replaced" when the package was handed over.
  std::string outcomeOf(const PackageFile& file, const std::string& content) {
    std::optional<std::string> outcome;
    const auto begun = start(file, content, [&](const system::Result<HandOver>& result) { outcome = textOf(result); });
    EXPECT_FALSE(outcome.has_value());
    if (!begun) {
      return "for good: " + begun.error().message;
    }
    EXPECT_TRUE(loop.runUntil([&] { return outcome.has_value(); }));
    return outcome.value_or("nothing came");
  }
  std::string outcomeOf(const std::string& content) { return outcomeOf(package(content), content); }

  /// As far as it gets until `condition` holds; then it is cancelled.
  void cancelWhen(const std::string& content, const std::function<bool()>& condition) {
    const PackageFile file = package(content);
    const auto begun = start(file, content, [](const auto& /*result*/) { ADD_FAILURE(); });
    EXPECT_TRUE(begun);
    EXPECT_TRUE(loop.runUntil(condition));
  }

  void setPatience(std::chrono::milliseconds patience) { opener.emplace(loop.watch(), patience); }

  bool losesItsChildren() {
    return loop.runUntil([] { return !fixtures::hasChildren(); });
  }

  /// Puts something else under every name that is used on the way to the desktop.
  void takeEveryName(const fs::path& folder) const {
    sandbox.write("malware", "malware");
    for (const fs::path& name : {folder / "tarnwell-update.deb", folder / ".package",
                                 system::AtomicFile::passingPath(folder / "tarnwell-update.deb")}) {
      fs::remove(name);
      fs::create_hard_link(sandbox / "malware", name);
    }
  }

  fixtures::Sandbox sandbox;
  fixtures::EnvironmentScope path{"PATH", sandbox.path().string() + ":/usr/bin:/bin"};
  fixtures::EventLoop loop;
  EngineProcess engine{UPDATE_ENGINE, loop.watch()};
  std::optional<host_linux::PackageOpener> opener{std::in_place, loop.watch()};
  fs::path image;
};

TEST_F(InstallationTest, aDebianPackageIsHandedToTheDesktopUnderOurOwnName) {
  EXPECT_EQ(outcomeOf(debianPackage), "opened");
  EXPECT_EQ(sandbox.read("opened"), debianPackage);
  EXPECT_EQ(sandbox.read("names"), (sandbox / "cache/tarnwell-update.deb").string() + "\n");
  EXPECT_TRUE(losesItsChildren());
}

TEST_F(InstallationTest, aDesktopThatOpensNoPackagesIsAFailure) {
  makeOpener("exit 3");
  EXPECT_EQ(outcomeOf(debianPackage),
            "No program on this system opens Debian packages. Install one that does, and try again.");
  EXPECT_TRUE(losesItsChildren());
  EXPECT_TRUE(fs::is_empty(sandbox / "cache"));
}

TEST_F(InstallationTest, withoutADesktopItIsAFailure) {
  const fixtures::EnvironmentScope nowhere("PATH", sandbox / "nowhere");
  EXPECT_EQ(outcomeOf(debianPackage),
            "The package could not be opened: cannot start xdg-open: No such file or directory. Install the program, "
            "which is in the package xdg-utils, and try again.");
  EXPECT_TRUE(fs::is_empty(sandbox / "cache"));
}

TEST_F(InstallationTest, aDesktopThatStaysWithThePackageIsNotWaitedFor) {
  setPatience(std::chrono::milliseconds(50));
  makeOpener("while [ ! -e " + (sandbox / "released").string() + " ]; do sleep 0.01; done; exit 4");
  EXPECT_EQ(outcomeOf(debianPackage), "opened");
  EXPECT_TRUE(fixtures::hasChildren());
  sandbox.write("released", "");
  EXPECT_TRUE(losesItsChildren());
}

TEST_F(InstallationTest, theAppImageThatRunsIsReplaced) {
  sandbox.write("Tarnwell.AppImage", "old");
  fs::permissions(sandbox / "Tarnwell.AppImage", fs::perms(0750));
  image = sandbox / "Tarnwell.AppImage";
  EXPECT_EQ(outcomeOf(appImage), "replaced");
  EXPECT_EQ(sandbox.read("Tarnwell.AppImage"), appImage);
  EXPECT_EQ(fs::status(sandbox / "Tarnwell.AppImage").permissions(), fs::perms(0750));
  EXPECT_FALSE(sandbox.holds("opened"));
  EXPECT_TRUE(fs::is_empty(sandbox / "cache"));
}

TEST_F(InstallationTest, aDesktopWhoseEndCannotBeSeenKeepsThePackage) {
  setPatience(std::chrono::minutes(5));
  makeOpener("while [ ! -e " + (sandbox / "released").string() + " ]; do sleep 0.01; done; exit 4");
  EXPECT_EQ(fixtures::exitStatusOf([this] {
              ::signal(SIGCHLD, SIG_IGN);
              const PackageFile file = package(debianPackage);
              std::string outcome;
              const auto begun = start(file, debianPackage, [&](const auto& result) { outcome = textOf(result); });
              // It ends when it is being watched, which it has to live for.
              const bool isOpen = loop.runUntil([this] { return sandbox.holds("names"); });
              sandbox.write("released", "");
              const bool isTold = loop.runUntil([&outcome] { return !outcome.empty(); });
              return isOpen && isTold && outcome == "opened" && sandbox.holds("cache/tarnwell-update.deb") ? 0 : 1;
            }),
            0);
}

TEST_F(InstallationTest, whatIsCancelledBeforeItIsOpenedLeavesNothingBehind) {
  const PackageFile file = package(debianPackage);
  const auto begin = [&] { return *start(file, debianPackage, [](const auto& /*result*/) { ADD_FAILURE(); }); };
  for (int round = 0; round < 10; ++round) {
    begin().reset();
    EXPECT_TRUE(fs::is_empty(sandbox / "cache"));
    auto named = begin();
    EXPECT_TRUE(fixtures::waitFor([this] { return sandbox.holds("cache/tarnwell-update.deb"); }));
    named.reset();
    EXPECT_TRUE(fs::is_empty(sandbox / "cache"));
  }
  EXPECT_TRUE(losesItsChildren());
  EXPECT_FALSE(sandbox.holds("opened"));
}

TEST_F(InstallationTest, aPackageThatIsOpenAlreadyIsLeftToTheDesktop) {
  makeOpener("while [ ! -e " + (sandbox / "released").string() + " ]; do sleep 0.01; done; exit 4");
  cancelWhen(debianPackage, [this] { return sandbox.holds("names"); });
  EXPECT_TRUE(sandbox.holds("cache/tarnwell-update.deb"));
  sandbox.write("released", "");
  EXPECT_TRUE(losesItsChildren());
}

TEST_F(InstallationTest, aNewAppImageLosesSetUserAndSetGroup) {
  sandbox.write("Tarnwell.AppImage", "old");
  fs::permissions(sandbox / "Tarnwell.AppImage", fs::perms(07751));
  image = sandbox / "Tarnwell.AppImage";
  EXPECT_EQ(outcomeOf(appImage), "replaced");
  EXPECT_EQ(fs::status(sandbox / "Tarnwell.AppImage").permissions(), fs::perms(0751));
}

TEST_F(InstallationTest, anAppImageThatIsGoneOrNoFileIsNotReplaced) {
  const auto refusal = [](const fs::path& target, const std::string& reason) {
    return "for good: The new version cannot take the place of " + target.string() + ": " + reason +
           ". Get the new version from where you got Tarnwell.";
  };
  image = sandbox / "gone/Tarnwell.AppImage";
  EXPECT_EQ(outcomeOf(appImage), refusal(sandbox / "gone/Tarnwell.AppImage", "No such file or directory"));
  image = sandbox / "gone.AppImage";
  EXPECT_EQ(outcomeOf(appImage), refusal(sandbox / "gone.AppImage", "No such file or directory"));
  sandbox.write("kept", "old");
  fs::create_symlink(sandbox / "kept", sandbox / "link");
  image = sandbox / "link";
  EXPECT_EQ(outcomeOf(appImage), refusal(sandbox / "link", "it is not a file"));
  EXPECT_EQ(sandbox.read("kept"), "old");
}

TEST_F(InstallationTest, anAppImageThatCannotBeReplacedNowMayBeTriedAgain) {
  // A file in a folder in which none can be made.
  image = "/proc/self/comm";
  const std::string outcome = outcomeOf(appImage);
  EXPECT_TRUE(outcome.starts_with("The new version cannot take the place of /proc/self/comm: ")) << outcome;
  EXPECT_TRUE(
      outcome.ends_with("The version that you have was left as it is. See that there is room and that you may "
                        "write there, and try again."))
      << outcome;
}

TEST_F(InstallationTest, anAppImageIsNothingForAnInstalledProgram) {
  EXPECT_EQ(outcomeOf(appImage),
            "for good: The update is an AppImage, but Tarnwell does not run from one. Get the package for your system "
            "from where you got Tarnwell.");
}

TEST_F(InstallationTest, whatChangedSinceItWasVerifiedIsNotPlaced) {
  image = sandbox / "Tarnwell.AppImage";
  sandbox.write("Tarnwell.AppImage", "old");
  std::string changed = appImage;
  changed.back() = 'y';
  EXPECT_EQ(
      outcomeOf(package(changed), appImage),
      "The downloaded update was thrown away, because it cannot be trusted: the signature does not belong to this "
      "file and key.");
  EXPECT_EQ(sandbox.read("Tarnwell.AppImage"), "old");
}

// An attacker who can write where downloads lie: everything that has a name there is theirs.
TEST_F(InstallationTest, whatIsOpenedIsTheFileThatWasVerifiedWhateverHadItsName) {
  const PackageFile file = package(debianPackage);
  takeEveryName(sandbox / "cache");
  EXPECT_EQ(outcomeOf(file, debianPackage), "opened");
  EXPECT_EQ(sandbox.read("opened"), debianPackage);
  // Their file was not written to, either.
  EXPECT_EQ(sandbox.read("malware"), "malware");
}

TEST_F(InstallationTest, linksUnderItsNamesLeadNowhere) {
  const PackageFile file = package(debianPackage);
  sandbox.write("letter", "of the user");
  for (const fs::path& name : {sandbox / "cache/tarnwell-update.deb",
                               system::AtomicFile::passingPath(sandbox / "cache/tarnwell-update.deb")}) {
    fs::create_symlink(sandbox / "letter", name);
  }
  EXPECT_EQ(outcomeOf(file, debianPackage), "opened");
  EXPECT_EQ(sandbox.read("opened"), debianPackage);
  EXPECT_EQ(sandbox.read("letter"), "of the user");
}

TEST_F(InstallationTest, anotherFolderInThePlaceOfItsOwnIsNotOpened) {
  for (const bool isLink : {false, true}) {
    const PackageFile file = package(debianPackage);
    fs::rename(sandbox / "cache", sandbox / "moved");
    fs::create_directory(sandbox / "theirs");
    takeEveryName(sandbox / "theirs");
    if (isLink) {
      fs::create_directory_symlink(sandbox / "theirs", sandbox / "cache");
    } else {
      fs::rename(sandbox / "theirs", sandbox / "cache");
    }
    const std::string outcome = outcomeOf(file, debianPackage);
    EXPECT_NE(outcome.find("another file was put in the place of the package"), std::string::npos) << outcome;
    EXPECT_FALSE(sandbox.holds("opened"));
    EXPECT_TRUE(fs::is_empty(sandbox / "moved"));
    for (const char* name : {"cache", "moved", "theirs"}) {
      fs::remove_all(sandbox / name);
    }
  }
}

TEST_F(InstallationTest, theAppImageIsWhatWasVerifiedWhereverDownloadsAreByNow) {
  image = sandbox / "Tarnwell.AppImage";
  sandbox.write("Tarnwell.AppImage", "old");
  const PackageFile file = package(appImage);
  takeEveryName(sandbox / "cache");
  fs::rename(sandbox / "cache", sandbox / "moved");
  EXPECT_EQ(outcomeOf(file, appImage), "replaced");
  EXPECT_EQ(sandbox.read("Tarnwell.AppImage"), appImage);
}

}  // namespace
}  // namespace tarnwell::updateclient
