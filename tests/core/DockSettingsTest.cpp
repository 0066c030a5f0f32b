#include "core/DockSettings.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>
#include <vector>

#include "fakes/RecordingCommandRunner.h"
#include "fixtures/StandardOutputCapture.h"

namespace tarnwell::core {
namespace {

using Commands = std::vector<std::string>;

const Commands sixReads = {
    "defaults read com.apple.dock autohide-delay", "defaults read com.apple.dock autohide-time-modifier",
    "defaults read com.apple.dock scroll-to-open", "defaults read com.apple.dock mineffect",
    "defaults read com.apple.dock showhidden",     "defaults read com.apple.dock static-only"};

const Commands sixDefaultWrites = {"defaults write com.apple.dock autohide-delay -float 0.2; killall Dock",
                                   "defaults write com.apple.dock autohide-time-modifier -float 0.5; killall Dock",
                                   "defaults write com.apple.dock scroll-to-open -bool false; killall Dock",
                                   "defaults write com.apple.dock mineffect -string genie && killall Dock",
                                   "defaults write com.apple.dock showhidden -bool false; killall Dock",
                                   "defaults write com.apple.dock static-only -bool false; killall Dock"};

Commands with(Commands commands, const std::string& last) {
  commands.push_back(last);
  return commands;
}

enum class System { macOS14, macOS15 };

class DockSettingsTest : public testing::Test {
 protected:
  void answer(const std::string& key, const std::string& output) {
    runner.answers["defaults read com.apple.dock " + key] = output;
  }

  /// A Dock in which every key differs from its default.
  void answerUnusualValues() {
    answer("autohide-delay", "0.75\n");
    answer("autohide-time-modifier", "1\n");
    answer("scroll-to-open", "1\n");
    answer("mineffect", "suck\n");
    answer("showhidden", "1\n");
    answer("static-only", "1\n");
    answer("single-app", "1\n");
  }

  /// A Dock in which every key holds its default.
  void answerDefaults() {
    answer("autohide-delay", "0.2\n");
    answer("autohide-time-modifier", "0.5\n");
    answer("mineffect", "genie\n");
  }

  fakes::RecordingCommandRunner runner;
  System system = System::macOS14;
  std::vector<std::string> opened;
  int changes = 0;
  DockSettings settings{{.runner = runner,
                         .usesSingleApp = [this] { return system == System::macOS14; },
                         .openURL = [this](const std::string& address) { opened.push_back(address); },
                         .changed = [this] { ++changes; }}};
};

TEST_F(DockSettingsTest, displayNamesAreKept) {
  const std::map<MinEffect, std::string> expected = {
      {MinEffect::genie, "Genie Effect"}, {MinEffect::scale, "Scale Effect"}, {MinEffect::suck, "Suck Effect"}};
  EXPECT_EQ(settings.menuBarActions, expected);
}

TEST_F(DockSettingsTest, newStateHoldsPlaceholdersAndDefaults) {
  EXPECT_EQ(settings.delaySpeedDefault, 0.2);
  EXPECT_EQ(settings.animationSpeedDefault, 0.5);
  EXPECT_EQ(settings.minEffectDefault, MinEffect::genie);
  EXPECT_FALSE(settings.scrollToExposeDefault || settings.showHiddenDefault || settings.activeAppsOnlyDefault ||
               settings.singleAppModeDefault);
  EXPECT_EQ(settings.delaySpeedCurrent, 9.0);
  EXPECT_EQ(settings.animationSpeedCurrent, 9.0);
  EXPECT_EQ(settings.minEffectCurrent, MinEffect::genie);
  EXPECT_FALSE(settings.scrollToExposeCurrent || settings.showHiddenCurrent || settings.activeAppsOnlyCurrent ||
               settings.singleAppModeCurrent);
  EXPECT_EQ(settings.delaySpeed, 8.0);
  EXPECT_EQ(settings.animationSpeed, 8.0);
  EXPECT_EQ(settings.minEffect, MinEffect::genie);
  EXPECT_FALSE(settings.scrollToExpose || settings.showHidden || settings.activeAppsOnly || settings.singleAppMode);
}

TEST_F(DockSettingsTest, newStateMatchesNothingAndRunsNothing) {
  EXPECT_FALSE(settings.matchesCurrent());
  EXPECT_FALSE(settings.matchesDefaults());
  EXPECT_EQ(runner.commands, Commands());
  EXPECT_EQ(changes, 0);
}

TEST_F(DockSettingsTest, loadReadsSevenKeysInOrder) {
  settings.loadFromDock();
  EXPECT_EQ(runner.commands, with(sixReads, "defaults read com.apple.dock single-app"));
  EXPECT_EQ(runner.captured, runner.commands);
}

TEST_F(DockSettingsTest, loadReadsSixKeysOnNewerSystems) {
  system = System::macOS15;
  settings.loadFromDock();
  EXPECT_EQ(runner.commands, sixReads);
}

TEST_F(DockSettingsTest, loadedValuesAreCurrentAndEdited) {
  answerUnusualValues();
  settings.loadFromDock();
  EXPECT_EQ(settings.delaySpeedCurrent, 0.75);
  EXPECT_EQ(settings.animationSpeedCurrent, 1.0);
  EXPECT_EQ(settings.minEffectCurrent, MinEffect::suck);
  EXPECT_TRUE(settings.scrollToExposeCurrent && settings.showHiddenCurrent && settings.activeAppsOnlyCurrent &&
              settings.singleAppModeCurrent);
  EXPECT_EQ(settings.delaySpeed, 0.75);
  EXPECT_EQ(settings.animationSpeed, 1.0);
  EXPECT_EQ(settings.minEffect, MinEffect::suck);
  EXPECT_TRUE(settings.scrollToExpose && settings.showHidden && settings.activeAppsOnly && settings.singleAppMode);
  EXPECT_TRUE(settings.matchesCurrent());
  EXPECT_FALSE(settings.matchesDefaults());
}

TEST_F(DockSettingsTest, loadLeavesSingleAppAloneOnNewerSystems) {
  system = System::macOS15;
  answerUnusualValues();
  settings.singleAppMode = true;
  settings.loadFromDock();
  EXPECT_TRUE(settings.singleAppMode);
  EXPECT_FALSE(settings.singleAppModeCurrent);
}

TEST_F(DockSettingsTest, anUnsetDelayLoadsAsZero) {
  answerDefaults();
  runner.answers.erase("defaults read com.apple.dock autohide-delay");
  settings.loadFromDock();
  EXPECT_EQ(settings.delaySpeedCurrent, 0.0);
  EXPECT_EQ(settings.delaySpeed, 0.0);
  EXPECT_TRUE(settings.matchesCurrent());
  EXPECT_FALSE(settings.matchesDefaults());
}

TEST_F(DockSettingsTest, aDockThatHoldsTheDefaultsMatchesThem) {
  answerDefaults();
  settings.loadFromDock();
  EXPECT_TRUE(settings.matchesCurrent());
  EXPECT_TRUE(settings.matchesDefaults());
}

TEST_F(DockSettingsTest, loadPrintsThreeLines) {
  answerUnusualValues();
  const fixtures::StandardOutputCapture output;
  settings.loadFromDock();
  EXPECT_EQ(output.text(), "1\nSCROLL 1\nsuck\n");
}

TEST_F(DockSettingsTest, saveWritesEveryEditedValueInOrder) {
  settings.delaySpeed = 0.0;
  settings.animationSpeed = 1.25;
  settings.scrollToExpose = true;
  settings.minEffect = MinEffect::scale;
  settings.activeAppsOnly = true;
  settings.singleAppMode = true;
  settings.save();
  const Commands expected = {"defaults write com.apple.dock autohide-delay -float 0.0; killall Dock",
                             "defaults write com.apple.dock autohide-time-modifier -float 1.25; killall Dock",
                             "defaults write com.apple.dock scroll-to-open -bool true; killall Dock",
                             "defaults write com.apple.dock mineffect -string scale && killall Dock",
                             "defaults write com.apple.dock showhidden -bool false; killall Dock",
                             "defaults write com.apple.dock static-only -bool true; killall Dock",
                             "defaults write com.apple.dock single-app -bool true; killall Dock"};
  EXPECT_EQ(runner.commands, expected);
  EXPECT_EQ(runner.detached, expected);
}

TEST_F(DockSettingsTest, savedValuesAreCurrent) {
  settings.delaySpeed = 0.3;
  settings.minEffect = MinEffect::scale;
  settings.singleAppMode = true;
  settings.save();
  EXPECT_EQ(settings.delaySpeedCurrent, 0.3);
  EXPECT_EQ(settings.animationSpeedCurrent, 8.0);
  EXPECT_EQ(settings.minEffectCurrent, MinEffect::scale);
  EXPECT_TRUE(settings.singleAppModeCurrent);
  EXPECT_TRUE(settings.matchesCurrent());
}

TEST_F(DockSettingsTest, saveWritesAllKeysWithNothingChanged) {
  answerDefaults();
  settings.loadFromDock();
  runner.commands.clear();
  settings.save();
  EXPECT_EQ(runner.commands,
            with(sixDefaultWrites, "defaults write com.apple.dock single-app -bool false; killall Dock"));
}

TEST_F(DockSettingsTest, saveOnNewerSystemsLeavesSingleAppEdited) {
  system = System::macOS15;
  answerDefaults();
  settings.loadFromDock();
  settings.singleAppMode = true;
  EXPECT_FALSE(settings.matchesCurrent());
  runner.commands.clear();
  settings.save();
  EXPECT_EQ(runner.commands, sixDefaultWrites);
  EXPECT_FALSE(settings.singleAppModeCurrent);
  EXPECT_FALSE(settings.matchesCurrent());
}

TEST_F(DockSettingsTest, resetWritesTheDefaultsInOrder) {
  answerUnusualValues();
  settings.loadFromDock();
  runner.commands.clear();
  settings.resetToDefaults();
  EXPECT_EQ(runner.commands,
            with(sixDefaultWrites, "defaults write com.apple.dock single-app -bool false; killall Dock"));
  EXPECT_EQ(runner.commands.at(3), "defaults write com.apple.dock mineffect -string genie && killall Dock");
}

TEST_F(DockSettingsTest, resetValuesAreEditedAndCurrent) {
  answerUnusualValues();
  settings.loadFromDock();
  settings.resetToDefaults();
  EXPECT_TRUE(settings.matchesDefaults());
  EXPECT_TRUE(settings.matchesCurrent());
  EXPECT_EQ(settings.delaySpeedCurrent, 0.2);
  EXPECT_EQ(settings.animationSpeedCurrent, 0.5);
  EXPECT_EQ(settings.minEffectCurrent, MinEffect::genie);
}

TEST_F(DockSettingsTest, resetOnNewerSystemsLeavesSingleAppAlone) {
  system = System::macOS15;
  settings.singleAppMode = true;
  settings.resetToDefaults();
  EXPECT_EQ(runner.commands, sixDefaultWrites);
  EXPECT_TRUE(settings.singleAppMode);
  EXPECT_FALSE(settings.singleAppModeCurrent);
  EXPECT_FALSE(settings.matchesDefaults());
}

TEST_F(DockSettingsTest, newerSystemsNeverHearOfSingleApp) {
  system = System::macOS15;
  settings.loadFromDock();
  settings.singleAppMode = true;
  settings.save();
  settings.resetToDefaults();
  for (const std::string& command : runner.commands) {
    EXPECT_EQ(command.find("single-app"), std::string::npos);
  }
  EXPECT_EQ(runner.commands.size(), 18U);
}

TEST_F(DockSettingsTest, eachEditedFieldCountsInBothComparisons) {
  settings.resetToDefaults();
  const auto differs = [this](auto field, auto value) {
    const auto before = settings.*field;
    settings.*field = value;
    const bool result = !settings.matchesCurrent() && !settings.matchesDefaults();
    settings.*field = before;
    return result && settings.matchesCurrent() && settings.matchesDefaults();
  };
  EXPECT_TRUE(differs(&DockSettings::delaySpeed, 0.21));
  EXPECT_TRUE(differs(&DockSettings::animationSpeed, 0.51));
  EXPECT_TRUE(differs(&DockSettings::scrollToExpose, true));
  EXPECT_TRUE(differs(&DockSettings::minEffect, MinEffect::scale));
  EXPECT_TRUE(differs(&DockSettings::showHidden, true));
  EXPECT_TRUE(differs(&DockSettings::activeAppsOnly, true));
  EXPECT_TRUE(differs(&DockSettings::singleAppMode, true));
}

TEST_F(DockSettingsTest, speedsAreComparedExactly) {
  settings.resetToDefaults();
  settings.animationSpeed = 0.5 + std::numeric_limits<double>::epsilon();
  EXPECT_FALSE(settings.matchesCurrent());
  settings.animationSpeed = 0.5;
  settings.delaySpeed = 0.1 + 0.1;
  EXPECT_TRUE(settings.matchesCurrent());
}

TEST_F(DockSettingsTest, zeroMatchesWhateverItsSign) {
  answer("autohide-delay", "-0.0\n");
  settings.loadFromDock();
  settings.delaySpeed = 0.0;
  EXPECT_TRUE(settings.matchesCurrent());
}

TEST_F(DockSettingsTest, aNanInTheDockNeverMatches) {
  answerDefaults();
  answer("autohide-delay", "nan\n");
  settings.loadFromDock();
  EXPECT_FALSE(settings.matchesCurrent());
  EXPECT_FALSE(settings.matchesDefaults());
  runner.commands.clear();
  settings.save();
  EXPECT_EQ(runner.commands.front(), "defaults write com.apple.dock autohide-delay -float nan; killall Dock");
  EXPECT_FALSE(settings.matchesCurrent());
  settings.resetToDefaults();
  EXPECT_TRUE(settings.matchesCurrent());
}

TEST_F(DockSettingsTest, anInfiniteSpeedMatchesItself) {
  answer("autohide-delay", "inf\n");
  settings.loadFromDock();
  EXPECT_TRUE(settings.matchesCurrent());
}

TEST_F(DockSettingsTest, eachOperationTellsTheListenerOnceAtItsEnd) {
  settings.loadFromDock();
  EXPECT_EQ(changes, 1);
  settings.save();
  EXPECT_EQ(changes, 2);
  settings.resetToDefaults();
  EXPECT_EQ(changes, 3);
  settings.openHelp();
  EXPECT_EQ(changes, 3);
}

TEST_F(DockSettingsTest, settingAFieldStoresItAndTellsTheListener) {
  settings.set(&DockSettings::delaySpeed, 0.3);
  settings.set(&DockSettings::minEffect, MinEffect::suck);
  EXPECT_EQ(settings.delaySpeed, 0.3);
  EXPECT_EQ(settings.minEffect, MinEffect::suck);
  EXPECT_EQ(changes, 2);
}

TEST_F(DockSettingsTest, theListenerSeesTheFinishedState) {
  bool matched = false;
  DockSettings* seen = nullptr;
  DockSettings observed({.runner = runner,
                         .usesSingleApp = [] { return true; },
                         .changed = [&] { matched = seen->matchesCurrent() && seen->matchesDefaults(); }});
  seen = &observed;
  observed.resetToDefaults();
  EXPECT_TRUE(matched);
}

TEST_F(DockSettingsTest, aStateWithoutAListenerWorks) {
  DockSettings alone({.runner = runner, .usesSingleApp = [] { return false; }});
  alone.loadFromDock();
  alone.set(&DockSettings::showHidden, true);
  EXPECT_FALSE(alone.matchesCurrent());
}

TEST_F(DockSettingsTest, helpOpensTheProductsHelpPage) {
  settings.openHelp();
  EXPECT_EQ(opened, Commands{"https://" TARNWELL_WEB_HOST "/help"});
  EXPECT_EQ(runner.commands, Commands());
}

}  // namespace
}  // namespace tarnwell::core
