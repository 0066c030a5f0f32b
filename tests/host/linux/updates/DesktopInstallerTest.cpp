#include "host/linux/updates/DesktopInstaller.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/Sandbox.h"
#include "fixtures/WaitFor.h"
#include "host/linux/updates/RunningAppImage.h"

namespace tarnwell::host_linux::updates {
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
    auto file = std::get<PackageFile>(std::move(created));
    EXPECT_FALSE(file.append(content));
    return file;
  }

  bool becomes(const std::function<bool()>& condition) {
    return fixtures::waitFor([&] {
      pollfd ready = {.fd = installer->descriptor(), .events = POLLIN, .revents = 0};
      if (::poll(&ready, 1, 0) > 0) {
        installer->dispatch();
      }
      return condition();
    });
  }

  /// Empty when the package was handed over.
  std::string refusal(PackageFile& file) {
    std::optional<std::string> reason;
    installer->install({.title = "../evil", .enclosure = {.url = "https://x/evil.sh"}}, file,
                       [&](const std::optional<Failure>& failure) { reason = failure ? failure->message : ""; });
    EXPECT_FALSE(reason.has_value());
    EXPECT_TRUE(becomes([&] { return reason.has_value(); }));
    return reason.value_or("nothing came");
  }

  void use(DesktopInstaller::Settings settings) { installer.emplace(std::move(settings)); }

  static bool hasChildren() { return ::waitid(P_ALL, 0, nullptr, WEXITED | WNOHANG | WNOWAIT) == 0 || errno != ECHILD; }

  fixtures::Sandbox sandbox;
  fixtures::EnvironmentScope path{"PATH", sandbox.path().string() + ":/usr/bin:/bin"};
  std::optional<DesktopInstaller> installer{DesktopInstaller::Settings{}};
};

TEST_F(DesktopInstallerTest, aDebianPackageIsHandedToTheDesktopUnderOurOwnName) {
  PackageFile file = package(debianPackage);
  EXPECT_EQ(refusal(file), "");
  EXPECT_EQ(sandbox.read("opened"), debianPackage);
  EXPECT_EQ(sandbox.read("names"), (sandbox / "cache/tarnwell-update.deb").string() + "\n");
  EXPECT_FALSE(hasChildren());
}

TEST_F(DesktopInstallerTest, aDesktopThatOpensNoPackagesIsAFailure) {
  makeOpener("exit 3");
  PackageFile file = package(debianPackage);
  EXPECT_EQ(refusal(file), "No program on this system opens packages.");
  EXPECT_FALSE(hasChildren());
  EXPECT_TRUE(fs::is_empty(sandbox / "cache"));
}

TEST_F(DesktopInstallerTest, withoutADesktopItIsAFailure) {
  const fixtures::EnvironmentScope nowhere("PATH", sandbox / "nowhere");
  PackageFile file = package(debianPackage);
  EXPECT_EQ(refusal(file), "The package could not be opened: cannot start xdg-open: No such file or directory.");
}

TEST_F(DesktopInstallerTest, aDesktopThatStaysWithThePackageIsNotWaitedFor) {
  use({.patience = std::chrono::milliseconds(50)});
  makeOpener("while [ ! -e " + (sandbox / "released").string() + " ]; do sleep 0.01; done; exit 4");
  PackageFile file = package(debianPackage);
  EXPECT_EQ(refusal(file), "");
  EXPECT_TRUE(hasChildren());
  sandbox.write("released", "");
  EXPECT_TRUE(becomes([] { return !hasChildren(); }));
}

TEST_F(DesktopInstallerTest, theAppImageThatRunsIsReplaced) {
  sandbox.write("Tarnwell.AppImage", "old");
  fs::permissions(sandbox / "Tarnwell.AppImage", fs::perms(0750));
  use({.appImage = sandbox / "Tarnwell.AppImage"});
  PackageFile file = package(appImage);
  EXPECT_EQ(refusal(file), "");
  EXPECT_EQ(sandbox.read("Tarnwell.AppImage"), appImage);
  EXPECT_EQ(fs::status(sandbox / "Tarnwell.AppImage").permissions(), fs::perms(0750));
  EXPECT_FALSE(sandbox.holds("opened"));
  EXPECT_TRUE(fs::is_empty(sandbox / "cache"));
}

TEST_F(DesktopInstallerTest, anAppImageThatCannotBeReplacedStaysAsItIs) {
  use({.appImage = sandbox / "gone/Tarnwell.AppImage"});
  PackageFile file = package(appImage);
  EXPECT_EQ(refusal(file),
            "cannot replace " + (sandbox / "gone/Tarnwell.AppImage").string() + ": No such file or directory");
}

TEST_F(DesktopInstallerTest, aReplacementThatIsNotFinishedLeavesNothingBehind) {
  fs::create_directory(sandbox / "programs");
  sandbox.write("programs/Tarnwell.AppImage", "old");
  use({.appImage = sandbox / "programs/Tarnwell.AppImage"});
  PackageFile file = package(appImage);
  installer->install({}, file, [](const std::optional<Failure>& /*failure*/) { ADD_FAILURE(); });
  installer->dispatch();
  installer.reset();
  EXPECT_EQ(sandbox.read("programs/Tarnwell.AppImage"), "old");
  EXPECT_EQ(std::distance(fs::directory_iterator(sandbox / "programs"), fs::directory_iterator()), 1);
}

TEST_F(DesktopInstallerTest, anAppImageIsNothingForAnInstalledProgram) {
  PackageFile file = package(appImage);
  EXPECT_EQ(refusal(file), "The update is an AppImage, but Tarnwell does not run from one.");
}

TEST_F(DesktopInstallerTest, anythingElseIsRefused) {
  for (const std::string content : {"", "#!/bin/sh\n",
                                    "\x7f"
                                    "ELF",
                                    "!<arch>\n"}) {
    PackageFile file = package(content);
    EXPECT_EQ(refusal(file), "The update is of a kind that cannot be installed on this system.");
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
}  // namespace tarnwell::host_linux::updates
