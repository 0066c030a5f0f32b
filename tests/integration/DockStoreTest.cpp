#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "core/DockFields.h"
#include "core/DockSettings.h"
#include "core/ShellCommandRunner.h"
#include "fixtures/DockCommands.h"
#include "fixtures/EnvironmentScope.h"
#include "fixtures/StandardOutputCapture.h"
#include "fixtures/Subprocess.h"
#include "fixtures/WaitFor.h"
#include "standin/MacSystem.h"

namespace tarnwell {
namespace {

namespace fs = std::filesystem;
using core::DockSettings;
using core::MinEffect;
using fixtures::waitFor;
using Values = std::vector<std::pair<std::string, std::string>>;

/// The settings over the real shell, the stand-in for `defaults` with a store of its own, and a `killall` that only
/// counts.
class DockStoreTest : public testing::Test {
 protected:
  DockStoreTest() {
    fs::create_directories(folder() / "bin");
    fs::create_directories(folder() / "killed");
    fs::create_symlink(DEFAULTS_PATH, folder() / "bin" / "defaults");
    // A file for each call.
    system.folder().write("bin/killall", "#!/bin/sh\n: > '" + (folder() / "killed").string() + "'/\"$1.$$\"\n");
    fs::permissions(folder() / "bin" / "killall", fs::perms::owner_all);
  }

  fs::path folder() const { return system.folder().path(); }

  std::ptrdiff_t killedDocks() const {
    const fs::directory_iterator calls(folder() / "killed");
    return std::count_if(begin(calls), end(calls), [](const auto& call) { return call.path().stem() == "Dock"; });
  }

  bool waitForKills(std::ptrdiff_t count) const {
    return waitFor([&] { return killedDocks() == count; });
  }

  /// A store in which no key holds its default or its fallback.
  void storeUnusualValues() const { system.runWrites(fixtures::savedCommands()); }

  void editUnusualValues() {
    core::forEachField([this](auto edited, auto, auto, auto, auto saved) { settings.set(edited, saved); });
  }

  bool holdsUnusualValues() const {
    bool holds = true;
    core::forEachField([&](auto edited, auto, auto, auto, auto saved) { holds = holds && settings.*edited == saved; });
    return holds;
  }

  bool holdsFallbacks() const {
    bool holds = true;
    core::forEachField(
        [&](auto edited, auto, auto, auto, auto saved) { holds = holds && settings.*edited == decltype(saved){}; });
    return holds;
  }

  /// What the store holds, with the names and in the order of the commands.
  Values storedValues() const {
    Values values;
    for (const auto& [key, value] : fixtures::outcomeOf(fixtures::resetCommands())) {
      values.emplace_back(key, system.value(key));
    }
    return values;
  }

  const Values unusualValues = fixtures::outcomeOf(fixtures::savedCommands());
  const std::ptrdiff_t restarts = std::ssize(fixtures::savedCommands());

  standin::MacSystem system;
  fixtures::EnvironmentScope path{"PATH", (folder() / "bin").string() + ":/usr/bin:/bin"};
  fixtures::EnvironmentScope root{"MACOS_ROOT", system.root()};
  fixtures::EnvironmentScope startUpFiles{"ZDOTDIR", folder().string()};
  fixtures::StandardOutputCapture printed;
  core::ShellCommandRunner runner;
  DockSettings settings{{.runner = runner, .usesSingleApp = [] { return true; }, .openURL = [](const auto&) {}}};
};

TEST_F(DockStoreTest, loadReadsWhatTheStoreHolds) {
  storeUnusualValues();
  settings.loadFromDock();
  EXPECT_TRUE(holdsUnusualValues());
  EXPECT_TRUE(settings.matchesCurrent());
  EXPECT_EQ(printed.text(), "0.3\nSCROLL 1\nsuck\n");
}

TEST_F(DockStoreTest, loadFallsBackWithoutASoundStoreAndLeavesItAlone) {
  settings.loadFromDock();
  EXPECT_TRUE(holdsFallbacks());
  EXPECT_FALSE(fs::exists(system.dockStore()));
  for (const std::string bytes : {"", "garbage", "bplist00", "<plist version=\"1.0\"><array/></plist>"}) {
    system.store(bytes);
    editUnusualValues();
    settings.loadFromDock();
    EXPECT_TRUE(holdsFallbacks()) << bytes;
    EXPECT_EQ(standin::fileContent(system.dockStore()), bytes);
  }
}

TEST_F(DockStoreTest, aStoreThatCannotBeReadIsLikeNone) {
  fs::create_directories(system.dockStore());
  settings.loadFromDock();
  EXPECT_TRUE(holdsFallbacks());
}

TEST_F(DockStoreTest, valuesOfOtherTypesAreReadAsTheirText) {
  system.shell(R"(w() { "$D" write com.apple.dock "$@"; }; w autohide-delay -array a b; w autohide-time-modifier 0.4;)"
               "w scroll-to-open -array 1; w mineffect -int 3; w showhidden -int 1; w static-only -string true");
  settings.loadFromDock();
  EXPECT_EQ(settings.delaySpeed, 0);
  EXPECT_EQ(settings.animationSpeed, 0.4);
  EXPECT_FALSE(settings.scrollToExpose);
  EXPECT_EQ(settings.minEffect, MinEffect::genie);
  EXPECT_TRUE(settings.showHidden);
  EXPECT_FALSE(settings.activeAppsOnly);
  system.shell(R"("$D" write com.apple.dock autohide-time-modifier fast)");
  settings.loadFromDock();
  EXPECT_EQ(settings.animationSpeed, 0);
}

TEST_F(DockStoreTest, aStartUpFileThatPrintsSpoilsTheReadingButNotTheWriting) {
  storeUnusualValues();
  system.folder().write(".zshenv", "print hello; print -u2 there\n");
  settings.loadFromDock();
  EXPECT_TRUE(holdsFallbacks());
  settings.set(&DockSettings::delaySpeed, 0.4);
  settings.save();
  EXPECT_TRUE(waitForKills(restarts));
  EXPECT_EQ(system.value("autohide-delay"), "0.4");
  EXPECT_EQ(system.value("mineffect"), "genie");
  EXPECT_EQ(system.value("showhidden"), "0");
}

TEST_F(DockStoreTest, saveArrivesAndIsReadBack) {
  editUnusualValues();
  settings.save();
  EXPECT_TRUE(waitForKills(restarts));
  EXPECT_EQ(storedValues(), unusualValues);
  settings.resetToDefaults();
  EXPECT_TRUE(waitForKills(2 * restarts));
  EXPECT_EQ(storedValues(), fixtures::outcomeOf(fixtures::resetCommands()));
  settings.loadFromDock();
  EXPECT_TRUE(settings.matchesDefaults());
}

TEST_F(DockStoreTest, saveReplacesValuesOfOtherTypes) {
  system.shell(
      R"(for k in autohide-delay mineffect showhidden; do "$D" write com.apple.dock "$k" -array a b || exit; done)");
  editUnusualValues();
  settings.save();
  EXPECT_TRUE(waitForKills(restarts));
  EXPECT_EQ(storedValues(), unusualValues);
}

TEST_F(DockStoreTest, saveLeavesTheOtherKeysAsTheyWere) {
  const standin::PropertyList before = standin::everyType();
  system.store(standin::binaryOf(before));
  editUnusualValues();
  settings.save();
  EXPECT_TRUE(waitForKills(restarts));
  EXPECT_EQ(storedValues(), unusualValues);
  const standin::PropertyList after = standin::listIn(standin::fileContent(system.dockStore()));
  for (const auto& [key, value] : unusualValues) {
    plist_dict_remove_item(after.get(), key.c_str());
  }
  EXPECT_TRUE(standin::isSame(after.get(), before.get()));
}

TEST_F(DockStoreTest, saveKeepsADamagedStoreAside) {
  for (const std::string bytes : {"", "garbage"}) {
    system.store(bytes);
    editUnusualValues();
    const std::ptrdiff_t before = killedDocks();
    settings.save();
    EXPECT_TRUE(waitForKills(before + restarts)) << bytes;
    EXPECT_EQ(storedValues(), unusualValues) << bytes;
  }
  EXPECT_EQ(system.preferenceNames().size(), 3U);
}

TEST_F(DockStoreTest, aStoreThatCannotBeWrittenStaysAsItWas) {
  storeUnusualValues();
  const std::string before = standin::fileContent(system.dockStore());
  // What a writer locks first is a folder now, which stops the super-user too, and nothing but writers.
  const fs::path lock = system.preferences() + "/.defaults.lock";
  ASSERT_TRUE(fs::remove(lock));
  fs::create_directory(lock);
  settings.resetToDefaults();
  // The effect alone starts the Dock again only after its own success.
  EXPECT_TRUE(waitForKills(restarts - 1));
  settings.loadFromDock();
  EXPECT_TRUE(holdsUnusualValues());
  EXPECT_EQ(standin::fileContent(system.dockStore()), before);
}

TEST_F(DockStoreTest, quittingRightAfterSaveStillWrites) {
  // Slow and talkative, so that everything happens after the end.
  const fs::path gate = folder() / "gate";
  system.folder().write("gate", "");
  system.folder().write(".zshenv",
                        "while [[ -e " + gate.string() + " ]]; do sleep 0.01; done; print hello; print -u2 there\n");
  const auto body = [this] {
    editUnusualValues();
    settings.save();
    return 0;
  };
  EXPECT_EQ(fixtures::exitStatusOf(body), 0);
  EXPECT_EQ(killedDocks(), 0);
  fs::remove(gate);
  EXPECT_TRUE(waitForKills(restarts));
  EXPECT_EQ(storedValues(), unusualValues);
}

}  // namespace
}  // namespace tarnwell
