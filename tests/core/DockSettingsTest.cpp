#include "core/DockSettings.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

#include "core/DockFields.h"
#include "fakes/RecordingCommandRunner.h"
#include "fixtures/DockCommands.h"
#include "fixtures/StandardOutputCapture.h"

namespace tarnwell::core {
namespace {

using fixtures::Commands;
using fixtures::readCommands;
using fixtures::resetCommands;
using fixtures::savedCommands;
using fixtures::withoutSingleApp;

enum class System { macOS14, macOS15 };

class DockSettingsTest : public testing::Test {
 protected:
  void answer(const std::string& key, const std::string& output) {
    runner.answers["defaults read com.apple.dock " + key] = output;
  }

  /// The Dock that such a Save or Reset leaves.
  void answerAfter(const Commands& writes) {
    for (const auto& [key, value] : fixtures::outcomeOf(writes)) {
      answer(key, value + "\n");
    }
  }

  fakes::RecordingCommandRunner runner;
  System system = System::macOS14;
  std::vector<std::string> opened;
  int changes = 0;
  DockSettings settings{{.runner = runner,
                         .usesSingleApp = [this] { return system == System::macOS14; },
                         .openURL = [this](const std::string& address) { opened.push_back(address); },
                         .helpPage = "https://my.site/help",
                         .changed = [this] { ++changes; }}};
};

TEST_F(DockSettingsTest, displayNamesAreKept) {
  const std::map<MinEffect, std::string> expected = {
      {MinEffect::genie, "Genie Effect"}, {MinEffect::scale, "Scale Effect"}, {MinEffect::suck, "Suck Effect"}};
  EXPECT_EQ(settings.menuBarActions, expected);
}

TEST_F(DockSettingsTest, newStateHoldsPlaceholdersAndDefaults) {
  forEachField([this](auto edited, auto current, auto byDefault, auto defaultValue, auto) {
    EXPECT_EQ(settings.*byDefault, defaultValue);
    if constexpr (std::is_same_v<decltype(defaultValue), double>) {
      EXPECT_EQ(settings.*current, 9.0);
      EXPECT_EQ(settings.*edited, 8.0);
    } else {
      EXPECT_EQ(settings.*current, defaultValue);
      EXPECT_EQ(settings.*edited, defaultValue);
    }
  });
}

TEST_F(DockSettingsTest, newStateMatchesNothingAndRunsNothing) {
  EXPECT_FALSE(settings.matchesCurrent());
  EXPECT_FALSE(settings.matchesDefaults());
  EXPECT_EQ(runner.commands, Commands());
  EXPECT_EQ(changes, 0);
}

TEST_F(DockSettingsTest, loadReadsEveryKeyInOrder) {
  settings.loadFromDock();
  EXPECT_EQ(runner.commands, readCommands());
  EXPECT_EQ(runner.captured, runner.commands);
}

TEST_F(DockSettingsTest, loadDoesNotReadSingleAppOnNewerSystems) {
  system = System::macOS15;
  settings.loadFromDock();
  EXPECT_EQ(runner.commands, withoutSingleApp(readCommands()));
}

TEST_F(DockSettingsTest, loadedValuesAreCurrentAndEdited) {
  answerAfter(savedCommands());
  settings.loadFromDock();
  forEachField([this](auto edited, auto current, auto, auto, auto saved) {
    EXPECT_EQ(settings.*current, saved);
    EXPECT_EQ(settings.*edited, saved);
  });
  EXPECT_TRUE(settings.matchesCurrent());
  EXPECT_FALSE(settings.matchesDefaults());
}

TEST_F(DockSettingsTest, loadLeavesSingleAppAloneOnNewerSystems) {
  system = System::macOS15;
  answerAfter(savedCommands());
  settings.singleAppMode = true;
  settings.loadFromDock();
  EXPECT_TRUE(settings.singleAppMode);
  EXPECT_FALSE(settings.singleAppModeCurrent);
}

TEST_F(DockSettingsTest, anUnsetDelayLoadsAsZero) {
  answerAfter(resetCommands());
  runner.answers.erase("defaults read com.apple.dock autohide-delay");
  settings.loadFromDock();
  EXPECT_EQ(settings.delaySpeedCurrent, 0.0);
  EXPECT_EQ(settings.delaySpeed, 0.0);
  EXPECT_TRUE(settings.matchesCurrent());
  EXPECT_FALSE(settings.matchesDefaults());
}

TEST_F(DockSettingsTest, aDockThatHoldsTheDefaultsMatchesThem) {
  answerAfter(resetCommands());
  settings.loadFromDock();
  EXPECT_TRUE(settings.matchesCurrent());
  EXPECT_TRUE(settings.matchesDefaults());
}

TEST_F(DockSettingsTest, loadPrintsThreeLines) {
  answerAfter(savedCommands());
  const fixtures::StandardOutputCapture output;
  settings.loadFromDock();
  EXPECT_EQ(output.text(), "0.3\nSCROLL 1\nsuck\n");
}

TEST_F(DockSettingsTest, saveWritesEveryEditedValueInOrder) {
  forEachField([this](auto edited, auto, auto, auto, auto saved) { settings.*edited = saved; });
  settings.save();
  EXPECT_EQ(runner.commands, savedCommands());
  EXPECT_EQ(runner.detached, runner.commands);
}

TEST_F(DockSettingsTest, anEditedFieldIsWrittenByItsOwnCommandAlone) {
  std::size_t index = 0;
  forEachField([&](auto edited, auto, auto, auto defaultValue, auto saved) {
    settings.resetToDefaults();
    settings.*edited = saved;
    runner.commands.clear();
    settings.save();
    Commands expected = resetCommands();
    expected.at(index) = savedCommands().at(index);
    EXPECT_EQ(runner.commands, expected);
    settings.*edited = defaultValue;
    ++index;
  });
  EXPECT_EQ(index, savedCommands().size());
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
  answerAfter(resetCommands());
  settings.loadFromDock();
  runner.commands.clear();
  settings.save();
  EXPECT_EQ(runner.commands, resetCommands());
}

TEST_F(DockSettingsTest, saveOnNewerSystemsLeavesSingleAppEdited) {
  system = System::macOS15;
  answerAfter(resetCommands());
  settings.loadFromDock();
  settings.singleAppMode = true;
  EXPECT_FALSE(settings.matchesCurrent());
  runner.commands.clear();
  settings.save();
  EXPECT_EQ(runner.commands, withoutSingleApp(resetCommands()));
  EXPECT_FALSE(settings.singleAppModeCurrent);
  EXPECT_FALSE(settings.matchesCurrent());
}

TEST_F(DockSettingsTest, resetWritesTheDefaultsInOrder) {
  answerAfter(savedCommands());
  settings.loadFromDock();
  runner.commands.clear();
  settings.resetToDefaults();
  EXPECT_EQ(runner.commands, resetCommands());
  EXPECT_EQ(runner.commands.at(3), "defaults write com.apple.dock mineffect -string genie && killall Dock");
}

TEST_F(DockSettingsTest, resetValuesAreEditedAndCurrent) {
  answerAfter(savedCommands());
  settings.loadFromDock();
  settings.resetToDefaults();
  EXPECT_TRUE(settings.matchesDefaults());
  EXPECT_TRUE(settings.matchesCurrent());
  forEachField(
      [this](auto, auto current, auto, auto defaultValue, auto) { EXPECT_EQ(settings.*current, defaultValue); });
}

TEST_F(DockSettingsTest, resetOnNewerSystemsLeavesSingleAppAlone) {
  system = System::macOS15;
  settings.singleAppMode = true;
  settings.resetToDefaults();
  EXPECT_EQ(runner.commands, withoutSingleApp(resetCommands()));
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
  EXPECT_EQ(runner.commands.size(), 3 * withoutSingleApp(resetCommands()).size());
}

TEST_F(DockSettingsTest, eachEditedFieldCountsInBothComparisons) {
  settings.resetToDefaults();
  forEachField([this](auto edited, auto, auto, auto defaultValue, auto saved) {
    settings.*edited = saved;
    EXPECT_FALSE(settings.matchesCurrent() || settings.matchesDefaults());
    settings.*edited = defaultValue;
    EXPECT_TRUE(settings.matchesCurrent() && settings.matchesDefaults());
  });
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
  answerAfter(resetCommands());
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

TEST_F(DockSettingsTest, theSameValueIsNoChange) {
  settings.set(&DockSettings::delaySpeed, 0.0);
  settings.set(&DockSettings::delaySpeed, 0.0);
  EXPECT_EQ(changes, 1);
  settings.set(&DockSettings::delaySpeed, -0.0);
  EXPECT_EQ(changes, 2);
  settings.set(&DockSettings::minEffect, MinEffect::genie);
  settings.set(&DockSettings::showHidden, false);
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
  EXPECT_EQ(opened, Commands{"https://my.site/help"});
  EXPECT_EQ(runner.commands, Commands());
}

}  // namespace
}  // namespace tarnwell::core
