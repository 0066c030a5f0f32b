#include <gtest/gtest.h>

#include "fixtures/StandardOutputCapture.h"
#include "kit/controls/ranges/Slider.h"
#include "scenarios/DockTab.h"

namespace tarnwell::scenarios {
namespace {

const std::string delayWrite = "defaults write com.apple.dock autohide-delay -float ";
const std::string thenRestart = "; killall Dock";

TEST(DockTabEditingScenarios, typedDigitsAreCutToTwo) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.enter("Delay seconds", "0.456");
  EXPECT_EQ(tab.value("Delay seconds"), "0.46");
  EXPECT_EQ(tab.value("Delay slider"), "0.46");
  tab.press("Save");
  EXPECT_EQ(tab.writes()[0], "defaults write com.apple.dock autohide-delay -float 0.46; killall Dock");
}

TEST(DockTabEditingScenarios, fiveSecondsAreAcceptedAndTheSliderStandsAtItsEnd) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.enter("Delay seconds", "5");
  EXPECT_EQ(tab.value("Delay seconds"), "5");
  EXPECT_EQ(tab.value("Delay slider"), "1.0");
  tab.press("Save");
  EXPECT_EQ(tab.writes()[0], "defaults write com.apple.dock autohide-delay -float 5.0; killall Dock");
}

TEST(DockTabEditingScenarios, aTypedThousandBecomesNone) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.enter("Delay seconds", "1000");
  EXPECT_EQ(tab.value("Delay seconds"), "0");
}

TEST(DockTabEditingScenarios, aTextThatIsNoNumberChangesNothing) {
  DockTab tab;
  tab.holdingDefaults().open();
  for (const std::string text : {"", "fast", "1x", "0,5"}) {
    tab.enter("Delay seconds", text);
    EXPECT_EQ(tab.value("Delay seconds"), "0.2") << text;
    EXPECT_FALSE(tab.isEnabled("Save")) << text;
  }
}

TEST(DockTabEditingScenarios, escapeGivesUpWhatWasTyped) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.type("Delay seconds", "3");
  tab.pressKey("Delay seconds", Key::escape);
  EXPECT_EQ(tab.value("Delay seconds"), "0.2");
  EXPECT_FALSE(tab.isEnabled("Save"));
}

TEST(DockTabEditingScenarios, whatIsCutToTheValueThatIsThereIsShownCutAndIsNoChange) {
  DockTab tab;
  tab.holdingDefaults().holding("autohide-delay", "0.46").open();
  tab.enter("Delay seconds", "0.456");
  EXPECT_EQ(tab.value("Delay seconds"), "0.46");
  EXPECT_EQ(tab.value("Delay slider"), "0.46");
  EXPECT_FALSE(tab.isEnabled("Save"));
}

TEST(DockTabEditingScenarios, returnSavesWhatWasTypedCutToTwoDecimals) {
  DockTab tab;
  tab.holdingDefaults().open();
  // So Save is enabled by the time that Return is pressed.
  tab.press("Dim hidden apps");
  tab.type("Delay seconds", "0.456");
  tab.pressKey("Delay seconds", Key::enter);
  const auto writes = tab.writes();
  ASSERT_EQ(writes.size(), fixtures::resetCommands().size());
  EXPECT_EQ(writes[0], delayWrite + "0.46" + thenRestart);
  EXPECT_EQ(tab.value("Delay seconds"), "0.46");
  EXPECT_FALSE(tab.isEnabled("Save"));
}

TEST(DockTabEditingScenarios, returnSavesNothingWhereTheCutLeavesNoChange) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.type("Delay seconds", "0.201");
  tab.pressKey("Delay seconds", Key::enter);
  EXPECT_EQ(tab.writes().size(), 0U);
  EXPECT_EQ(tab.value("Delay seconds"), "0.2");
}

TEST(DockTabEditingScenarios, aValueSetByAnAssistiveClientIsPrintedAsItCameAndKeptInHundredths) {
  DockTab tab;
  tab.holdingDefaults().open();
  const fixtures::StandardOutputCapture output;
  tab.driver().perform(tab.find<kit::Control>("Delay slider"),
                       {.action = kit::AccessibleAction::setValue, .value = 0.456});
  EXPECT_EQ(output.text(), "VALUE: 0.456\n");
  EXPECT_EQ(tab.value("Delay slider"), "0.46");
  EXPECT_EQ(tab.value("Delay seconds"), "0.46");
  EXPECT_TRUE(tab.isEnabled("Save"));
}

TEST(DockTabEditingScenarios, helpLeavesEditsAsTheyAreAndWritesNothing) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.enter("Delay seconds", "0.9");
  tab.press("Dim hidden apps");
  tab.reads();
  tab.press("Help");
  EXPECT_EQ(tab.openedAddresses().size(), 1U);
  EXPECT_EQ(tab.value("Delay seconds"), "0.9");
  EXPECT_EQ(tab.value("Dim hidden apps"), "on");
  EXPECT_TRUE(tab.isEnabled("Save"));
  EXPECT_EQ(tab.writes().size() + tab.reads().size(), 0U);
}

TEST(DockTabEditingScenarios, inACommaLocaleResetWritesTheFractionsButEditsNone) {
  DockTab tab({.format = host_headless::PointNumberFormat(',', '.')});
  tab.holdingDefaults().holding("autohide-delay", "3").holding("showhidden", "1").open();
  tab.press("Reset to Defaults");
  const auto writes = tab.writes();
  ASSERT_EQ(writes.size(), fixtures::resetCommands().size());
  EXPECT_EQ(writes[0], delayWrite + "0.2" + thenRestart);
  EXPECT_EQ(writes[1], "defaults write com.apple.dock autohide-time-modifier -float 0.5" + thenRestart);
  EXPECT_EQ(tab.value("Delay seconds"), "0");
  EXPECT_EQ(tab.value("Animation seconds"), "0");
  EXPECT_EQ(tab.value("Dim hidden apps"), "off");
  // What was sent is 0.2 and 0.5, so there is something to save, and something to reset.
  EXPECT_TRUE(tab.isEnabled("Save"));
  EXPECT_TRUE(tab.isEnabled("Reset to Defaults"));
  tab.press("Save");
  const auto saved = tab.writes();
  ASSERT_EQ(saved.size(), fixtures::resetCommands().size());
  EXPECT_EQ(saved[0], delayWrite + "0.0" + thenRestart);
  EXPECT_FALSE(tab.isEnabled("Save"));
}

}  // namespace
}  // namespace tarnwell::scenarios
