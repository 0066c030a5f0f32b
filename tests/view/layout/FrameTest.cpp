#include <gtest/gtest.h>

#include "kit/controls/containers/ScrollArea.h"
#include "view/Block.h"
#include "view/Stage.h"
#include "view/controls/containers/ScrollView.h"
#include "view/controls/text/Text.h"
#include "view/layout/Spacer.h"
#include "view/layout/Stack.h"

namespace tarnwell::view {
namespace {

struct Opened : Stage {
  explicit Opened(const View& content) : Stage(content) { open(); }
};

TEST(FrameTest, theContentStandsWhereTheAlignmentSays) {
  struct Row {
    kit::TextAlignment alignment = {};
    double x = 0;
  };
  for (const Row& expected : {Row{kit::TextAlignment::leading, 0}, Row{kit::TextAlignment::center, 45},
                              Row{kit::TextAlignment::trailing, 90}}) {
    Opened stage{fixedBlock("a", 10, 20).frame({.width = 100, .alignment = expected.alignment})};
    EXPECT_EQ(stage.frame("a"), (kit::Rect{expected.x, 0, 10, 20}));
    EXPECT_EQ(stage.window().contentSize(), (kit::Size{100, 20}));
  }
}

TEST(FrameTest, aWidthIsOfferedToTheContent) {
  Opened stage{wideBlock("a", 5, 20).frame({.width = 100})};
  EXPECT_EQ(stage.frame("a").width, 100);
  EXPECT_EQ(stage.find<BlockControl>("a").proposals().front(), (kit::Proposal{.width = 100}));
}

TEST(FrameTest, aLeastWidthGivesWayToWhatIsWider) {
  for (const auto& [content, width] : {std::pair(30.0, 100.0), std::pair(130.0, 138.0)}) {
    Opened stage{View(HStack{.children = {fixedBlock("a", content, 20), Spacer{}}}).frame({.minWidth = 100})};
    EXPECT_EQ(stage.frame("a").x, 0);
    EXPECT_EQ(stage.window().contentSize().width, width);
  }
}

TEST(FrameTest, aLeastWidthIsOfferedToTheContent) {
  Opened stage{wideBlock("a", 5, 20).frame({.minWidth = 100})};
  EXPECT_EQ(stage.find<BlockControl>("a").proposals().front(), (kit::Proposal{.width = 100}));
  EXPECT_EQ(stage.frame("a").width, 100);
}

TEST(FrameTest, aFixedHeightCentresWhatIsLower) {
  Opened stage{fixedBlock("a", 10, 20).frame({.height = 50})};
  EXPECT_EQ(stage.frame("a"), (kit::Rect{0, 15, 10, 20}));
  EXPECT_EQ(stage.window().contentSize(), (kit::Size{10, 50}));
}

TEST(PaddingTest, theContentHasRoomOnEachSideAndIsOfferedTheRest) {
  Opened stage{View(wideBlock("a", 5, 20)).padding(8).frame({.width = 100})};
  EXPECT_EQ(stage.frame("a"), (kit::Rect{8, 8, 84, 20}));
  EXPECT_EQ(stage.window().contentSize(), (kit::Size{100, 36}));
}

TEST(ScrollViewTest, itIsAsHighAsItsContentUntilThatIsTooHigh) {
  for (const auto& [content, height] : {std::pair(50.0, 52.0), std::pair(500.0, 190.0)}) {
    Opened stage{View(ScrollView{.title = "Notes", .content = fixedBlock("a", 10, content)})
                     .frame({.width = 100, .maxHeight = 190})};
    EXPECT_EQ(stage.window().contentSize(), (kit::Size{100, height}));
    const auto& area = stage.find<kit::ScrollArea>("Notes");
    EXPECT_EQ(area.frame(), (kit::Rect{1, 1, 98, height - 2}));
    EXPECT_EQ(area.contentHeight(), content);
    EXPECT_EQ(stage.host().boxes(kit::Box::Kind::field), (std::vector<kit::Rect>{{0, 0, 100, height}}));
  }
}

TEST(FrameTest, aTextBreaksInItsFrame) {
  Opened stage{View(Text{"0123456789"}).frame({.width = 35})};
  EXPECT_EQ(stage.frame("0123456789"), (kit::Rect{0, 0, 35, 32}));
}

TEST(FrameTest, contentThatIsTooTallIsOfferedTheGreatestHeight) {
  Opened stage{tallBlock("a", 10, 300).frame({.maxHeight = 200})};
  EXPECT_EQ(stage.frame("a"), (kit::Rect{0, 0, 10, 200}));
  EXPECT_EQ(stage.window().contentSize().height, 200);
}

TEST(FrameTest, lowerContentIsNotStretchedToTheGreatestHeight) {
  Opened stage{tallBlock("a", 10, 100).frame({.maxHeight = 200})};
  EXPECT_EQ(stage.frame("a").height, 100);
  EXPECT_EQ(stage.window().contentSize().height, 100);
}

TEST(FrameTest, rigidContentThatIsTooTallIsCut) {
  Opened stage{fixedBlock("a", 10, 300).frame({.maxHeight = 200})};
  EXPECT_EQ(stage.window().contentSize().height, 200);
}

TEST(FrameTest, aFixedSizeIgnoresWhatIsOffered) {
  Opened stage{wideBlock("a", 30, 10).fixedSize().frame({.width = 200, .alignment = kit::TextAlignment::leading})};
  EXPECT_EQ(stage.frame("a"), (kit::Rect{0, 0, 30, 10}));
}

TEST(FrameTest, anotherFrameMovesTheContent) {
  Opened stage{fixedBlock("a", 10, 20).frame({.width = 100})};
  stage.show(fixedBlock("a", 10, 20).frame({.width = 60, .height = 40, .alignment = kit::TextAlignment::trailing}));
  EXPECT_EQ(stage.frame("a"), (kit::Rect{50, 10, 10, 20}));
  EXPECT_EQ(stage.window().contentSize(), (kit::Size{60, 40}));
}

TEST(FrameTest, aBackgroundStandsInTheMiddleAndDoesNotCount) {
  Opened stage{fixedBlock("a", 100, 60).background(fixedBlock("b", 20, 20))};
  EXPECT_EQ(stage.frame("b"), (kit::Rect{40, 20, 20, 20}));
  EXPECT_EQ(stage.window().contentSize(), (kit::Size{100, 60}));
  EXPECT_EQ(stage.window().controls().front(), &stage.find<kit::Control>("b"));
}

}  // namespace
}  // namespace tarnwell::view
