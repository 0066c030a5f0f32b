#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

#include "kit/control/Control.h"
#include "scenarios/DockTab.h"

namespace tarnwell::scenarios {
namespace {

using Lines = std::vector<std::string>;

using fixtures::readCommands;
using fixtures::resetCommands;
using fixtures::savedCommands;
using fixtures::withoutSingleApp;

struct Switch {
  std::string name;
  std::string key;
};

/// From the top down.
const std::array switches = {Switch{"Scroll to Exposé", "scroll-to-open"}, Switch{"Dim hidden apps", "showhidden"},
                             Switch{"Single app mode", "single-app"}, Switch{"Show active apps only", "static-only"}};

TEST(DockTabScenarios, openingReadsEveryKeyOnceInOrder) {
  DockTab tab;
  tab.holdingDefaults().open();
  EXPECT_EQ(tab.reads(), readCommands());
  EXPECT_EQ(tab.writes(), Lines{});
}

TEST(DockTabScenarios, openingShowsWhatTheDockHolds) {
  DockTab tab;
  tab.holdingAfter(savedCommands()).open();
  EXPECT_EQ(tab.value("Delay seconds"), "0.7");
  EXPECT_EQ(tab.value("Delay slider"), "0.7");
  EXPECT_EQ(tab.value("Delay stepper"), "0.7");
  EXPECT_EQ(tab.value("Animation seconds"), "0.3");
  EXPECT_EQ(tab.value("Minimize windows using"), "Suck Effect");
  for (const auto& [name, key] : switches) {
    EXPECT_EQ(tab.value(name), "on") << name;
  }
  EXPECT_FALSE(tab.isEnabled("Save"));
  EXPECT_TRUE(tab.isEnabled("Reset to Defaults"));
}

TEST(DockTabScenarios, eachSwitchShowsAndWritesItsOwnKeyAlone) {
  for (const auto& [name, key] : switches) {
    DockTab tab;
    tab.holdingDefaults().holding(key, "1").open();
    for (const auto& [other, otherKey] : switches) {
      EXPECT_EQ(tab.value(other), other == name ? "on" : "off") << name;
    }
    tab.press("Reset to Defaults");
    tab.writes();
    tab.press(name);
    tab.press("Save");
    Lines expected = resetCommands();
    std::replace(expected.begin(), expected.end(),
                 "defaults write com.apple.dock " + key + " -bool false; killall Dock",
                 "defaults write com.apple.dock " + key + " -bool true; killall Dock");
    EXPECT_EQ(tab.writes(), expected);
  }
}

TEST(DockTabScenarios, aDockThatHoldsNothingShowsFallbacksAndCanBeReset) {
  DockTab tab;
  tab.open();
  EXPECT_EQ(tab.value("Delay seconds"), "0");
  EXPECT_EQ(tab.value("Minimize windows using"), "Genie Effect");
  EXPECT_FALSE(tab.isEnabled("Save"));
  EXPECT_TRUE(tab.isEnabled("Reset to Defaults"));
}

TEST(DockTabScenarios, aDockAtItsDefaultsOffersNeitherButton) {
  DockTab tab;
  tab.holdingDefaults().open();
  EXPECT_FALSE(tab.isEnabled("Save"));
  EXPECT_FALSE(tab.isEnabled("Reset to Defaults"));
  EXPECT_TRUE(tab.isEnabled("Help"));
}

TEST(DockTabScenarios, changingAnyValueEnablesSaveAndChangingItBackDisablesIt) {
  DockTab tab;
  tab.holdingDefaults().open();
  for (const auto& [name, key] : switches) {
    tab.press(name);
    EXPECT_TRUE(tab.isEnabled("Save")) << name;
    EXPECT_TRUE(tab.isEnabled("Reset to Defaults")) << name;
    tab.press(name);
    EXPECT_FALSE(tab.isEnabled("Save")) << name;
  }
  for (const std::string name : {"Animation stepper", "Delay stepper"}) {
    tab.stepUp(name);
    EXPECT_TRUE(tab.isEnabled("Save")) << name;
    tab.stepDown(name);
    EXPECT_FALSE(tab.isEnabled("Save")) << name;
  }
  tab.choose("Minimize windows using", 1);
  EXPECT_TRUE(tab.isEnabled("Save"));
  tab.choose("Minimize windows using", 0);
  EXPECT_FALSE(tab.isEnabled("Save"));
}

TEST(DockTabScenarios, backAtTheDefaultsResetIsDisabledThoughSaveIsEnabled) {
  DockTab tab;
  tab.holdingDefaults().holding("showhidden", "1").open();
  tab.press("Dim hidden apps");
  EXPECT_TRUE(tab.isEnabled("Save"));
  EXPECT_FALSE(tab.isEnabled("Reset to Defaults"));
}

TEST(DockTabScenarios, draggingFullyLeftIsOneSecondAndFullyRightIsNone) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.dragTo("Animation slider", 0);
  EXPECT_EQ(tab.value("Animation slider"), "1.0");
  EXPECT_EQ(tab.value("Animation seconds"), "1");
  tab.dragTo("Animation slider", 1);
  EXPECT_EQ(tab.value("Animation slider"), "0.0");
  EXPECT_EQ(tab.value("Animation seconds"), "0");
}

TEST(DockTabScenarios, aDragLandsOnHundredths) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.dragTo("Delay slider", 0.6137);
  const std::string value = tab.value("Delay seconds");
  EXPECT_LE(value.size(), 4U) << value;
  EXPECT_EQ(tab.value("Delay slider"), value);
}

TEST(DockTabScenarios, arrowKeysMoveTheTurnedKnobAsSeen) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.nudge("Delay slider", 1);
  EXPECT_EQ(tab.value("Delay seconds"), "0.19");
  tab.nudge("Delay slider", -1);
  EXPECT_EQ(tab.value("Delay seconds"), "0.2");
}

TEST(DockTabScenarios, inACommaLocaleFractionsBecomeNoneAndWholeNumbersStay) {
  DockTab tab({.format = host_headless::PointNumberFormat(',', '.')});
  tab.holdingDefaults().open();
  EXPECT_EQ(tab.value("Delay seconds"), "0");
  tab.enter("Delay seconds", "5");
  EXPECT_EQ(tab.value("Delay seconds"), "5");
  tab.enter("Delay seconds", "0,5");
  EXPECT_EQ(tab.value("Delay seconds"), "0");
}

TEST(DockTabScenarios, inACommaLocaleTypedThousandsAreCutAgainUntilTheyStay) {
  DockTab tab({.format = host_headless::PointNumberFormat(',', '.')});
  tab.holdingDefaults().open();
  tab.enter("Delay seconds", "1000");
  EXPECT_EQ(tab.value("Delay seconds"), "1");
  // 1234 is read as 1.234 first, and that loses its fraction.
  tab.enter("Delay seconds", "1234");
  EXPECT_EQ(tab.value("Delay seconds"), "0");
}

TEST(DockTabScenarios, aTypedNegativeIsTakenAndTheSliderStandsAtNone) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.enter("Delay seconds", "-3");
  EXPECT_EQ(tab.value("Delay seconds"), "-3");
  EXPECT_EQ(tab.value("Delay slider"), "0.0");
  EXPECT_EQ(tab.value("Delay stepper"), "-3.0");
  tab.press("Save");
  EXPECT_EQ(tab.writes()[0], "defaults write com.apple.dock autohide-delay -float -3.0; killall Dock");
}

TEST(DockTabScenarios, aTypedNegativeThatRoundsToNoneKeepsItsSign) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.enter("Delay seconds", "-0.001");
  EXPECT_EQ(tab.value("Delay seconds"), "-0");
  // A platform's slider need not keep the sign.
  EXPECT_EQ(std::stod(tab.value("Delay slider")), 0);
  tab.press("Save");
  EXPECT_EQ(tab.writes()[0], "defaults write com.apple.dock autohide-delay -float -0.0; killall Dock");
}

TEST(DockTabScenarios, steppersMoveByAHundredthBetweenNoneAndAHundred) {
  DockTab tab;
  tab.holdingDefaults().holding("autohide-delay", "99.99").holding("autohide-time-modifier", "0.01").open();
  tab.stepUp("Delay stepper");
  tab.stepUp("Delay stepper");
  EXPECT_EQ(tab.value("Delay seconds"), "100");
  tab.stepDown("Animation stepper");
  tab.stepDown("Animation stepper");
  EXPECT_EQ(tab.value("Animation seconds"), "0");
}

TEST(DockTabScenarios, manyStepsKeepTwoDecimals) {
  DockTab tab;
  tab.holdingDefaults().open();
  for (int i = 0; i < 25; ++i) {
    tab.stepUp("Delay stepper");
  }
  EXPECT_EQ(tab.value("Delay stepper"), "0.45");
}

TEST(DockTabScenarios, aDockWithThreeDecimalsIsEditedWithTwo) {
  DockTab tab;
  tab.holdingDefaults().holding("autohide-delay", "0.456").open();
  EXPECT_EQ(tab.value("Delay seconds"), "0.46");
  EXPECT_TRUE(tab.isEnabled("Save"));
}

TEST(DockTabScenarios, oddNumbersInTheStoreNeitherCrashNorHang) {
  for (const std::string odd : {"nan", "inf", "-inf", "0x1p-1", "1e300", "-3", "1e-300"}) {
    DockTab tab;
    tab.holdingDefaults().holding("autohide-delay", odd).open();
    EXPECT_TRUE(tab.isEnabled("Reset to Defaults")) << odd;
    tab.stepUp("Delay stepper");
    tab.press("Reset to Defaults");
    EXPECT_EQ(tab.value("Delay seconds"), "0.2") << odd;
  }
}

TEST(DockTabScenarios, saveWritesEveryKeyInOrderAndIsThenDisabled) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.enter("Delay seconds", "0.7");
  tab.enter("Animation seconds", "0.3");
  tab.choose("Minimize windows using", 2);
  for (const auto& [name, key] : switches) {
    tab.press(name);
  }
  tab.press("Save");
  EXPECT_EQ(tab.writes(), savedCommands());
  EXPECT_FALSE(tab.isEnabled("Save"));
  EXPECT_TRUE(tab.isEnabled("Reset to Defaults"));
}

TEST(DockTabScenarios, aDisabledSaveDoesNothing) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.press("Save");
  tab.pressKey("Help", Key::enter);
  EXPECT_EQ(tab.writes(), Lines{});
}

TEST(DockTabScenarios, returnPressesSaveFromAnywhere) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.press("Dim hidden apps");
  tab.pressKey("Dim hidden apps", Key::enter);
  EXPECT_EQ(tab.writes().size(), savedCommands().size());
  EXPECT_FALSE(tab.isEnabled("Save"));
}

TEST(DockTabScenarios, returnInAFieldTakesTheTextAndThenSaves) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.type("Animation seconds", "0.3");
  EXPECT_FALSE(tab.isEnabled("Save"));
  tab.pressKey("Animation seconds", Key::enter);
  const Lines writes = tab.writes();
  ASSERT_EQ(writes.size(), savedCommands().size());
  EXPECT_EQ(writes[1], "defaults write com.apple.dock autohide-time-modifier -float 0.3; killall Dock");
}

TEST(DockTabScenarios, aPressOnSaveTakesWhatIsBeingTypedFirst) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.type("Delay seconds", "0.9");
  tab.press("Save");
  const Lines writes = tab.writes();
  ASSERT_EQ(writes.size(), savedCommands().size());
  EXPECT_EQ(writes[0], "defaults write com.apple.dock autohide-delay -float 0.9; killall Dock");
}

TEST(DockTabScenarios, spaceTurnsASwitch) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.pressKey("Scroll to Exposé", Key::space);
  EXPECT_EQ(tab.value("Scroll to Exposé"), "on");
}

TEST(DockTabScenarios, nothingHasTheKeyboardEachTimeThatItOpens) {
  DockTab tab;
  tab.holdingDefaults();
  for (int i = 0; i < 2; ++i) {
    tab.open();
    tab.driver().pressKey(tab.hosted().window(), Key::space);
    EXPECT_EQ(tab.value("Scroll to Exposé"), "off");
    tab.pressKey("Scroll to Exposé", Key::space);
    EXPECT_EQ(tab.value("Scroll to Exposé"), "on");
    tab.close();
  }
}

TEST(DockTabScenarios, resetWritesTheDefaultsShowsThemAndDisablesBothButtons) {
  DockTab tab;
  tab.holding("autohide-delay", "3").holding("mineffect", "suck").holding("showhidden", "1");
  tab.open();
  tab.press("Reset to Defaults");
  EXPECT_EQ(tab.writes(), resetCommands());
  EXPECT_EQ(tab.value("Delay seconds"), "0.2");
  EXPECT_EQ(tab.value("Animation slider"), "0.5");
  EXPECT_EQ(tab.value("Minimize windows using"), "Genie Effect");
  EXPECT_EQ(tab.value("Dim hidden apps"), "off");
  EXPECT_FALSE(tab.isEnabled("Save"));
  EXPECT_FALSE(tab.isEnabled("Reset to Defaults"));
}

TEST(DockTabScenarios, helpOpensTheHelpPageOnce) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.press("Help");
  ASSERT_EQ(tab.openedAddresses().size(), 1U);
  const std::string& address = tab.openedAddresses().front();
  EXPECT_EQ(address.substr(0, 8), "https://");
  EXPECT_EQ(address.substr(address.find('/', 8)), "/help");
}

TEST(DockTabScenarios, systemsFrom15OnHaveNoSingleAppRowAndNeverTouchItsKey) {
  for (const int patch : {0, 1}) {
    DockTab tab({.version = {.major = 15, .minor = 0, .patch = patch}});
    tab.holdingDefaults().open();
    EXPECT_FALSE(tab.has("Single app mode"));
    EXPECT_TRUE(tab.has("Dim hidden apps"));
    tab.press("Dim hidden apps");
    tab.press("Save");
    tab.press("Reset to Defaults");
    EXPECT_EQ(tab.reads(), withoutSingleApp(readCommands()));
    const Lines writes = tab.writes();
    EXPECT_EQ(writes.size(), 2 * withoutSingleApp(resetCommands()).size());
    for (const std::string& line : writes) {
      EXPECT_EQ(line.find("single-app"), std::string::npos) << line;
    }
  }
}

TEST(DockTabScenarios, systemsBefore15HaveTheSingleAppRowAndReadAndWriteItsKey) {
  for (const int minor : {0, 9, 99}) {
    DockTab tab({.version = {.major = 14, .minor = minor, .patch = minor}});
    tab.holdingDefaults().open();
    EXPECT_EQ(tab.reads(), readCommands());
    ASSERT_TRUE(tab.has("Single app mode"));
    tab.press("Single app mode");
    tab.press("Save");
    EXPECT_FALSE(tab.isEnabled("Save"));
    EXPECT_EQ(tab.writes().back(), "defaults write com.apple.dock single-app -bool true; killall Dock");
    tab.press("Reset to Defaults");
    EXPECT_EQ(tab.value("Single app mode"), "off");
    EXPECT_EQ(tab.writes().back(), "defaults write com.apple.dock single-app -bool false; killall Dock");
  }
}

TEST(DockTabScenarios, everyShowingReadsAgain) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.press("Dim hidden apps");
  tab.close();
  tab.reads();
  tab.holding("autohide-delay", "0.7").open();
  EXPECT_EQ(tab.reads(), readCommands());
  EXPECT_EQ(tab.value("Delay seconds"), "0.7");
  EXPECT_EQ(tab.value("Dim hidden apps"), "off");
  EXPECT_FALSE(tab.isEnabled("Save"));
}

TEST(DockTabScenarios, everyControlHasANameOfItsOwn) {
  DockTab tab;
  tab.holdingDefaults().open();
  Lines names;
  for (kit::Control* control : tab.hosted().tree().controls()) {
    if (control->takesFocus()) {
      names.push_back(tab.driver().look(*control).name);
    }
  }
  Lines expected = {"Animation slider", "Animation seconds", "Animation stepper",     "Delay slider",
                    "Delay seconds",    "Delay stepper",     "Minimize windows using"};
  for (const Switch& each : switches) {
    expected.push_back(each.name);
  }
  for (const char* button : {"Save", "Reset to Defaults", "Help"}) {
    expected.emplace_back(button);
  }
  EXPECT_EQ(names, expected);
}

}  // namespace
}  // namespace tarnwell::scenarios
