#include <gtest/gtest.h>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/WaitFor.h"
#include "updater/UpdaterStage.h"
#include "updater/package/DesktopInstaller.h"
#include "updater/package/ForkedWorker.h"
#include "updater/package/RealPackage.h"

namespace tarnwell::updater {
namespace {

namespace fs = std::filesystem;

/// The updater with its real installer, and an attacker who can write where downloads lie: everything that has a name
/// there is theirs, from the moment that the package was verified.
class SwappedPackageTest : public testing::Test {
 protected:
  SwappedPackageTest() {
    stage.sandbox.write("xdg-open", "#!/bin/sh\ncp \"$1\" '" + (stage.sandbox / "opened").string() + "'\n");
    fs::permissions(stage.sandbox / "xdg-open", fs::perms::owner_all);
    stage.sandbox.write("Tarnwell.AppImage", "the one that runs");
  }

  static std::string appImageOf(char filling) {
    return std::string(
               "\x7f"
               "ELF\2\1\1\0AI\2",
               11) +
           std::string(600'000, filling);
  }

  /// Up to the question whether the verified package shall be installed.
  void verify(const std::string& package) {
    updater = std::make_unique<Updater>(stage.configuration(), stage.preferences,
                                        UpdaterPorts{stage.transport, stage.driver, installer, stage.alarm, worker});
    updater->start();
    updater->checkForUpdates();
    stage.transport.answer(feedOf("<item><x:version>2.0</x:version>" + stage.enclosure(package) + "</item>"));
    stage.driver.choose(Choice::install);
    stage.transport.answer(package);
    ASSERT_TRUE(becomes("ready 2.0 as asked")) << stage.driver.screen;
    ASSERT_TRUE(stage.holdsNoPackage());
  }

  /// Puts something else under every name that is used on the way to the desktop.
  void takeEveryName(const fs::path& folder) const {
    for (const char* name : {"tarnwell-update.deb", ".tarnwell-update.deb.draft", ".package", "package"}) {
      fs::remove(folder / name);
      fs::create_hard_link(stage.sandbox / "malware", folder / name);
    }
  }

  bool becomes(const std::string& screen) {
    return fixtures::waitFor([&] {
      worker.dispatch();
      installer.dispatch();
      return stage.driver.screen.starts_with(screen);
    });
  }

  UpdaterStage stage;
  fixtures::EnvironmentScope path{"PATH", stage.sandbox.path().string() + ":/usr/bin:/bin"};
  ForkedWorker worker;
  DesktopInstaller installer{DesktopInstaller::Settings{.appImage = stage.sandbox / "Tarnwell.AppImage"}, worker};
  std::unique_ptr<Updater> updater;
  std::string debian = realPackage("2.0", std::string(600'000, 'g'));
  std::string malware = realPackage("2.0", std::string(600'000, 'e'));
};

TEST_F(SwappedPackageTest, whatIsOpenedIsTheFileThatWasVerifiedWhateverHadItsName) {
  verify(debian);
  stage.sandbox.write("malware", malware);
  takeEveryName(stage.sandbox / "packages");
  stage.driver.choose(Choice::install);
  ASSERT_TRUE(becomes("opened 2.0")) << stage.driver.screen;
  EXPECT_EQ(stage.sandbox.read("opened"), debian);
  EXPECT_EQ(stage.sandbox.read("packages/tarnwell-update.deb"), debian);
  // Their file was not written to, either.
  EXPECT_EQ(stage.sandbox.read("malware"), malware);
}

TEST_F(SwappedPackageTest, linksUnderItsNamesLeadNowhere) {
  verify(debian);
  stage.sandbox.write("letter", "of the user");
  for (const char* name : {"tarnwell-update.deb", ".tarnwell-update.deb.draft", ".package"}) {
    fs::create_symlink(stage.sandbox / "letter", stage.sandbox / "packages" / name);
  }
  stage.driver.choose(Choice::install);
  ASSERT_TRUE(becomes("opened 2.0")) << stage.driver.screen;
  EXPECT_EQ(stage.sandbox.read("opened"), debian);
  EXPECT_EQ(stage.sandbox.read("letter"), "of the user");
}

TEST_F(SwappedPackageTest, anotherFolderInThePlaceOfItsOwnIsNotOpened) {
  for (const bool isLink : {false, true}) {
    verify(debian);
    stage.sandbox.write("malware", malware);
    fs::rename(stage.sandbox / "packages", stage.sandbox / "moved");
    fs::create_directory(stage.sandbox / "theirs");
    takeEveryName(stage.sandbox / "theirs");
    if (isLink) {
      fs::create_directory_symlink(stage.sandbox / "theirs", stage.sandbox / "packages");
    } else {
      fs::rename(stage.sandbox / "theirs", stage.sandbox / "packages");
    }
    stage.driver.choose(Choice::install);
    ASSERT_TRUE(becomes("failure: ")) << stage.driver.screen;
    EXPECT_NE(stage.driver.screen.find("another file was put in the place of the package"), std::string::npos)
        << stage.driver.screen;
    EXPECT_FALSE(stage.sandbox.holds("opened"));
    EXPECT_TRUE(fs::is_empty(stage.sandbox / "moved"));
    stage.driver.acknowledge();
    for (const char* name : {"packages", "moved", "theirs"}) {
      fs::remove_all(stage.sandbox / name);
    }
  }
}

TEST_F(SwappedPackageTest, theAppImageIsWhatWasVerified) {
  verify(appImageOf('g'));
  stage.sandbox.write("malware", appImageOf('e'));
  takeEveryName(stage.sandbox / "packages");
  fs::rename(stage.sandbox / "packages", stage.sandbox / "moved");
  stage.driver.choose(Choice::install);
  ASSERT_TRUE(becomes("replaced by 2.0")) << stage.driver.screen;
  EXPECT_EQ(stage.sandbox.read("Tarnwell.AppImage"), appImageOf('g'));
}

}  // namespace
}  // namespace tarnwell::updater
