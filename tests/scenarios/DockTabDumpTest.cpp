#include <gtest/gtest.h>

#include "fixtures/StandardOutputCapture.h"
#include "host/headless/HeadlessHost.h"
#include "scenarios/DockTab.h"
#include "view/tree/Dump.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::scenarios {
namespace {

constexpr const char* wholeForm = R"tree(Fixed size
  Frame at most 700 high centred
    Frame width 600 centred
      Form
        Section
          Row
            HStack on baseline, spacing 8
              Symbol dock.arrow.up.rectangle
              Text "Animation"
            Frame width 250 leading
              Text "How long the dock's reveal animation lasts." subheadline secondary
            VStack centred, spacing 2
              HStack on baseline, spacing 8
                HStack on baseline, spacing 4
                  Symbol tortoise.fill "Slow"
                  VStack centred, spacing 2
                    Slider 0.5 of 0 to 1, 11 ticks turned 180
                    HStack centred, spacing 8
                      Text "Slow" caption
                      Spacer
                      Text "Fast" caption
                  Symbol hare.fill "Instant"
                VStack centred, spacing 2
                  HStack centred, spacing 4
                    Frame width 50 centred
                      TextField (Speed (seconds)) "0.5"
                    Stepper (0.5)
                  Text "sec" caption
          Row
            HStack on baseline, spacing 8
              Symbol timer
              Text "Delay"
            Frame width 250 leading
              Text "How long the mouse must be against the screen edge before the dock reveals." subheadline secondary
            VStack centred, spacing 2
              HStack on baseline, spacing 8
                HStack on baseline, spacing 4
                  Symbol tortoise.fill "Slow"
                  VStack centred, spacing 2
                    Slider 0.2 of 0 to 1, 11 ticks turned 180
                    HStack centred, spacing 8
                      Text "Long" caption
                      Spacer
                      Text "Short" caption
                  Symbol hare.fill "Instant"
                VStack centred, spacing 2
                  HStack centred, spacing 4
                    Frame width 50 centred
                      TextField (Speed (seconds)) "0.2"
                    Stepper (0.2)
                  Text "sec" caption
          Text "Delay setting is ignored in fullscreen mode." subheadline secondary
        Section
          Row
            HStack on baseline, spacing 8
              Symbol arrow.down.right.and.arrow.up.left
              Text "Minimize windows using"
            Picker (Minimize windows using) *"Genie Effect" wand.and.stars.inverse "Scale Effect" square.resize.down "Suck Effect" tornado
          Text "Choose from the existing system effects or an additional "suck" effect." subheadline secondary
        Section
          Row
            HStack on baseline, spacing 8
              Symbol rectangle.and.hand.point.up.left.filled
              Text "Scroll to Exposé"
            Text "Scroll up on a Dock icon to show all Space's opened windows for an app, or open stack." subheadline secondary
            Toggle (Scroll to Exposé) off
          Row
            HStack on baseline, spacing 8
              Symbol eye.slash
              Text "Dim hidden apps"
            Text "Shows an app was hidden by dimming the icon in the dock." subheadline secondary
            Toggle (Dim hidden apps) off
          Row
            HStack on baseline, spacing 8
              Symbol macwindow
              Text "Single app mode"
            Text "Clicking an app icon in the dock will hide other app windows." subheadline secondary
            Toggle (Single app mode) off
        Section
          Row
            HStack on baseline, spacing 8
              Symbol app.badge.checkmark.fill
              Text "Show active apps only"
            Text "Only show opened applications in the dock." subheadline secondary
            Toggle (Show active apps only) off
          HStack centred, spacing 8
            HStack centred, spacing 8
              Symbol exclamationmark.circle "Caution" secondary
              Text "Do not pin apps while this is active, or existing pinned apps will be removed." subheadline secondary
            Spacer
        Section without a box
          HStack centred, spacing 8
            Button "Save" default disabled
            Spacer
            Button "Reset to Defaults" destructive disabled
            Help button ""
)tree";

TEST(DockTabDump, theWholeFormReadsAsDesigned) {
  DockTab tab;
  tab.holdingDefaults().open();
  EXPECT_EQ(view::dump(tab.hosted().tree().root()), wholeForm);
}

TEST(DockTabDump, anEditShowsInEveryControlOfItsRow) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.enter("Delay seconds", "0.456");
  const std::string picture = view::dump(tab.hosted().tree().root());
  EXPECT_NE(picture.find("Slider 0.46 of 0 to 1, 11 ticks turned 180"), std::string::npos);
  EXPECT_NE(picture.find("TextField (Speed (seconds)) \"0.46\""), std::string::npos);
  EXPECT_NE(picture.find("Stepper (0.46)"), std::string::npos);
}

TEST(DockTabDump, theWindowIs600WideAndAsHighAsTheForm) {
  DockTab tab;
  tab.holdingDefaults().open();
  EXPECT_EQ(tab.hosted().window().contentSize(), (kit::Size{.width = 600, .height = 596}));
}

TEST(DockTabDump, aLowScreenCapsTheWindow) {
  DockTab tab;
  dynamic_cast<host_headless::HeadlessHost&>(tab.driver().host()).setAvailableHeight(400);
  tab.holdingDefaults().open();
  EXPECT_EQ(tab.hosted().window().contentSize(), (kit::Size{.width = 600, .height = 400}));
}

TEST(DockTabDump, nothingIsShownBeforeTheDockHasBeenRead) {
  DockTab tab;
  tab.holdingDefaults().open();
  const auto& journal = dynamic_cast<host_headless::HeadlessHost&>(tab.driver().host()).journal().lines();
  ASSERT_FALSE(journal.empty());
  EXPECT_EQ(journal.back(), "window dock: shown");
}

TEST(DockTabDump, mountingAndLoadingPrintTheirLines) {
  const fixtures::StandardOutputCapture output;
  DockTab tab;
  tab.holdingDefaults().holding("autohide-time-modifier", "0.25").holding("mineffect", "Suck").open();
  std::string expected;
  for (int slider = 0; slider < 2; ++slider) {
    for (const std::string line : {"Tick mark 0 rect: 4.0, 19.0, 2.0, 5.0", "Tick mark 1 rect: 15.8, 19.0, 2.0, 5.0",
                                   "Tick mark 2 rect: 27.6, 19.0, 2.0, 5.0", "Tick mark 3 rect: 39.4, 19.0, 2.0, 5.0",
                                   "Tick mark 4 rect: 51.2, 19.0, 2.0, 5.0", "Tick mark 5 rect: 63.0, 19.0, 2.0, 5.0",
                                   "Tick mark 6 rect: 74.8, 19.0, 2.0, 5.0", "Tick mark 7 rect: 86.6, 19.0, 2.0, 5.0",
                                   "Tick mark 8 rect: 98.4, 19.0, 2.0, 5.0", "Tick mark 9 rect: 110.2, 19.0, 2.0, 5.0",
                                   "Tick mark 10 rect: 122.0, 19.0, 2.0, 5.0"}) {
      expected += line + "\n";
    }
  }
  EXPECT_EQ(output.text(), expected + "0.25\nSCROLL 0\nSuck\n");
}

}  // namespace
}  // namespace tarnwell::scenarios
