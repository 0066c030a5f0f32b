#include "host/linux/PackageOpener.h"

#include <gtest/gtest.h>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/EventLoop.h"
#include "fixtures/Processes.h"
#include "fixtures/Sandbox.h"

namespace tarnwell::host_linux {
namespace {

using Told = std::vector<std::string>;

const std::string noProgram = "No program on this system opens Debian packages. Install one that does, and try again.";

/// On a desktop of the test's own, which has a minute.
class PackageOpenerTest : public testing::Test {
 protected:
  /// `text` is run by a shell in the sandbox, and finds the file as "$1".
  void makeDesktop(const std::string& text) const {
    sandbox.write("xdg-open", "#!/bin/sh\ncd '" + sandbox.path().string() + "'\n" + text + "\n");
    std::filesystem::permissions(sandbox / "xdg-open", std::filesystem::perms::owner_all);
  }

  system::Result<void> open(PackageOpener& opener, const std::string& file = "a.deb") {
    return opener.open(
        file, [this](const system::Result<void>& result) { told.push_back(result ? "" : result.error().message); });
  }

  bool runsUntilTold() {
    return loop.runUntil([this] { return !told.empty(); });
  }
  bool runsUntilAllHaveEnded() {
    return loop.runUntil([] { return !fixtures::hasChildren(); });
  }

  fixtures::Sandbox sandbox;
  fixtures::EnvironmentScope path{"PATH", sandbox.path().string() + ":/usr/bin:/bin"};
  fixtures::EventLoop loop;
  PackageOpener desktop{loop.watch(), std::chrono::minutes(1)};
  Told told;
};

TEST_F(PackageOpenerTest, tellsWhatBecameOfIt) {
  makeDesktop("echo \"$1\" >opened");
  EXPECT_TRUE(open(desktop));
  EXPECT_TRUE(runsUntilTold());
  EXPECT_EQ(told, Told{""});
  EXPECT_EQ(sandbox.read("opened"), "a.deb\n");
  told.clear();
  makeDesktop("exit 3");
  EXPECT_TRUE(open(desktop));
  EXPECT_TRUE(runsUntilTold());
  EXPECT_EQ(told, Told{noProgram});
}

TEST_F(PackageOpenerTest, saysThatThereIsNoDesktop) {
  const fixtures::EnvironmentScope nowhere("PATH", sandbox / "nowhere");
  const auto started = open(desktop);
  ASSERT_FALSE(started);
  EXPECT_TRUE(started.error().message.starts_with("The package could not be opened: cannot start xdg-open: "));
}

TEST_F(PackageOpenerTest, aDesktopThatStaysWithThePackageHasOpenedIt) {
  makeDesktop("until [ -e released ]; do sleep 0.01; done; exit 3");
  PackageOpener impatient(loop.watch(), std::chrono::milliseconds(20));
  EXPECT_TRUE(open(impatient));
  EXPECT_TRUE(runsUntilTold());
  EXPECT_TRUE(fixtures::hasChildren());
  sandbox.write("released", "");
  EXPECT_TRUE(runsUntilAllHaveEnded());
  EXPECT_EQ(told, Told{""});
}

TEST_F(PackageOpenerTest, whatIsNotWaitedForAnyMoreTellsNothing) {
  makeDesktop("exit 3");
  EXPECT_TRUE(open(desktop));
  desktop.stopWaiting();
  EXPECT_TRUE(runsUntilAllHaveEnded());
  EXPECT_EQ(told, Told());
}

// A child has its number until its end is seen.
TEST_F(PackageOpenerTest, theEndOfAnEarlierOneIsNotThatOfTheNext) {
  makeDesktop(
      "[ \"$1\" = next ] || { echo $$ >number; exit 3; }\n"
      "until [ -s number ]; do sleep 0.01; done\n"
      "while kill -0 \"$(cat number)\"; do sleep 0.01; done");
  EXPECT_TRUE(open(desktop, "first"));
  EXPECT_TRUE(open(desktop, "next"));
  EXPECT_TRUE(runsUntilAllHaveEnded());
  EXPECT_EQ(told, Told{""});
}

}  // namespace
}  // namespace tarnwell::host_linux
