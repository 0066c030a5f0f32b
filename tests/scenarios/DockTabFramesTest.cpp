#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fixtures/StandardOutputCapture.h"
#include "kit/Printing.h"
#include "kit/controls/text/SymbolView.h"
#include "kit/controls/text/TextLabel.h"
#include "scenarios/DockTab.h"
#include "view/Dump.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::scenarios {
namespace {

using Frames = std::vector<kit::Rect>;

// Where things stand on the headless host, whose letters have fixed sizes.
class OpenTab {
 public:
  explicit OpenTab(kit::SystemVersion version = {}) : tab_({.version = version}) { tab_.holdingDefaults().open(); }

  kit::Rect frameOf(const std::string& name) { return tab_.find<kit::Control>(name).frame(); }
  kit::Size windowSize() { return tab_.hosted().window().contentSize(); }
  std::string dump() { return view::dump(tab_.hosted().tree().root()); }

  // Of the symbols with this name, from the top.
  Frames symbols(const std::string& name) {
    Frames frames;
    for (const kit::Control* control : tab_.hosted().tree().controls()) {
      if (dynamic_cast<const kit::SymbolView*>(control) != nullptr && control->accessibleName() == name) {
        frames.push_back(control->frame());
      }
    }
    return frames;
  }

  // Of the line of text with this beginning.
  kit::Rect text(const std::string& beginning) {
    for (const kit::Control* control : tab_.hosted().tree().controls()) {
      const auto* label = dynamic_cast<const kit::TextLabel*>(control);
      if (label != nullptr && label->text().rfind(beginning, 0) == 0) {
        return label->frame();
      }
    }
    return {};
  }

 private:
  fixtures::StandardOutputCapture output_;
  DockTab tab_;
};

kit::Rect moved(kit::Rect frame, double down) {
  frame.y += down;
  return frame;
}

TEST(DockTabFrames, theDescriptionsOfTheSpeedsAre250WideAndTheFieldsAre50) {
  OpenTab tab;
  EXPECT_EQ(tab.text("How long the dock's").width, 250);
  EXPECT_EQ(tab.text("How long the mouse").width, 250);
  EXPECT_EQ(tab.frameOf("Animation seconds").width, 50);
  EXPECT_EQ(tab.frameOf("Delay seconds").width, 50);
}

TEST(DockTabFrames, sliderAndAnimalsStandFourApartAndSoDoFieldAndStepper) {
  OpenTab tab;
  const Frames tortoises = tab.symbols("Slow");
  const Frames hares = tab.symbols("Instant");
  ASSERT_EQ(tortoises.size(), 2U);
  ASSERT_EQ(hares.size(), 2U);
  for (const std::size_t row : {0U, 1U}) {
    const std::string name = row == 0 ? "Animation" : "Delay";
    const kit::Rect slider = tab.frameOf(name + " slider");
    EXPECT_EQ(slider.x - tortoises[row].right(), 4) << name;
    EXPECT_EQ(hares[row].x - slider.right(), 4) << name;
    EXPECT_EQ(tab.frameOf(name + " stepper").x - tab.frameOf(name + " seconds").right(), 4) << name;
  }
}

TEST(DockTabFrames, allDescriptionsShareALeftEdgeWithTheTitles) {
  OpenTab tab;
  for (const std::string beginning :
       {"Animation", "How long the dock's", "Delay", "How long the mouse", "Minimize windows using", "Scroll to Exposé",
        "Scroll up", "Dim hidden apps", "Shows an app", "Single app mode", "Clicking an app", "Show active apps only",
        "Only show"}) {
    EXPECT_EQ(tab.text(beginning).x, 58) << beginning;
  }
}

TEST(DockTabFrames, bothSpeedRowsAreAlike) {
  OpenTab tab;
  const double down = tab.frameOf("Delay slider").y - tab.frameOf("Animation slider").y;
  EXPECT_GT(down, 0);
  for (const std::string part : {" slider", " seconds", " stepper"}) {
    EXPECT_EQ(tab.frameOf("Delay" + part), moved(tab.frameOf("Animation" + part), down)) << part;
  }
  for (const std::string animal : {"Slow", "Instant"}) {
    const Frames both = tab.symbols(animal);
    EXPECT_EQ(both.at(1), moved(both.at(0), down)) << animal;
  }
  EXPECT_EQ(tab.text("How long the mouse"), moved(tab.text("How long the dock's"), down));
}

TEST(DockTabFrames, system15ShowsTheSameTreeWithoutTheSingleAppRow) {
  const std::string row =
      "          Row\n"
      "            HStack on baseline, spacing 8\n"
      "              Symbol macwindow\n"
      "              Text \"Single app mode\"\n"
      "            Text \"Clicking an app icon in the dock will hide other app windows.\" subheadline secondary\n"
      "            Toggle \"Single app mode\": off\n";
  std::string expected = OpenTab({.major = 14}).dump();
  const std::size_t at = expected.find(row);
  ASSERT_NE(at, std::string::npos);
  expected.erase(at, row.size());
  EXPECT_EQ(OpenTab({.major = 15}).dump(), expected);
}

TEST(DockTabFrames, system15HasNoGapWhereTheRowWas) {
  OpenTab with({.major = 14});
  OpenTab without({.major = 15});
  // Its neighbour above is as high.
  const double row = with.frameOf("Single app mode").y - with.frameOf("Dim hidden apps").y;
  EXPECT_EQ(without.windowSize(), (kit::Size{.width = 600, .height = with.windowSize().height - row}));
  for (const std::string above : {"Animation slider", "Scroll to Exposé", "Dim hidden apps"}) {
    EXPECT_EQ(without.frameOf(above), with.frameOf(above)) << above;
  }
  for (const std::string below : {"Show active apps only", "Save", "Reset to Defaults", "Help"}) {
    EXPECT_EQ(without.frameOf(below), moved(with.frameOf(below), -row)) << below;
  }
}

}  // namespace
}  // namespace tarnwell::scenarios
