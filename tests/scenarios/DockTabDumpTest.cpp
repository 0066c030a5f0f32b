#include <gtest/gtest.h>

#include "fixtures/DockTabHeight.h"
#include "fixtures/ExpectDump.h"
#include "fixtures/StandardOutputCapture.h"
#include "host/headless/HeadlessHost.h"
#include "scenarios/DockTab.h"
#include "view/Dump.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::scenarios {
namespace {

TEST(DockTabDump, theWholeFormReadsAsDesigned) {
  DockTab tab;
  tab.holdingDefaults().open();
  fixtures::expectDump("scenarios/DockTab.dump", view::dump(tab.hosted().tree().root()));
}

TEST(DockTabDump, anEditShowsInEveryControlOfItsRow) {
  DockTab tab;
  tab.holdingDefaults().open();
  tab.enter("Delay seconds", "0.456");
  const std::string picture = view::dump(tab.hosted().tree().root());
  EXPECT_NE(picture.find(R"(Slider "Delay slider": 0.46 of 0 to 1 by 0.01 upside down)"), std::string::npos);
  EXPECT_NE(picture.find(R"(TextField "Delay seconds": "0.46")"), std::string::npos);
  EXPECT_NE(picture.find(R"(Stepper "Delay stepper": 0.46 of 0 to 100 by 0.01)"), std::string::npos);
}

TEST(DockTabDump, theWindowIs600WideAndAsHighAsTheForm) {
  DockTab tab;
  tab.holdingDefaults().open();
  EXPECT_EQ(tab.hosted().window().contentSize(), (kit::Size{.width = 600, .height = fixtures::dockTabHeight}));
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
