#include "view/layout/Stack.h"

#include <gtest/gtest.h>

#include "view/Block.h"
#include "view/Stage.h"
#include "view/controls/text/Text.h"
#include "view/layout/Spacer.h"

namespace tarnwell::view {
namespace {

/// Laid out in a window of its own width, or in `width` where one is given.
struct LaidOut : Stage {
  explicit LaidOut(const View& content) : Stage(content) { open(); }
  LaidOut(const View& content, double width)
      : LaidOut(content.frame({.width = width, .alignment = kit::TextAlignment::leading})) {}
};

View row(std::vector<View> children) { return HStack{.spacing = 10, .children = std::move(children)}; }

TEST(HStackTest, childrenStandSideBySideInTheMiddle) {
  LaidOut stage{row({fixedBlock("a", 10, 40), fixedBlock("b", 20, 10), fixedBlock("c", 30, 20)})};
  EXPECT_EQ(stage.frame("a"), (kit::Rect{0, 0, 10, 40}));
  EXPECT_EQ(stage.frame("b"), (kit::Rect{20, 15, 20, 10}));
  EXPECT_EQ(stage.frame("c"), (kit::Rect{50, 10, 30, 20}));
  EXPECT_EQ(stage.window().contentSize(), (kit::Size{80, 40}));
}

TEST(HStackTest, baselinesStandInOneLine) {
  LaidOut stage{
      HStack{.alignment = VerticalAlignment::firstTextBaseline,
             .spacing = 0,
             .children = {fixedBlock("a", 10, 20, 15), fixedBlock("b", 10, 40, 12), fixedBlock("c", 10, 8, 8)}}};
  EXPECT_EQ(stage.frame("a").y, 0);
  EXPECT_EQ(stage.frame("b").y, 3);
  EXPECT_EQ(stage.frame("c").y, 7);
  EXPECT_EQ(stage.window().contentSize().height, 43);
}

TEST(HStackTest, atTheTopNothingIsCentred) {
  LaidOut stage{HStack{.alignment = VerticalAlignment::top,
                       .children = {fixedBlock("a", 10, 40, 30), fixedBlock("b", 20, 10, 5)}}};
  EXPECT_EQ(stage.frame("a").y, 0);
  EXPECT_EQ(stage.frame("b").y, 0);
  EXPECT_EQ(stage.window().contentSize().height, 40);
}

TEST(HStackTest, aStackHasTheBaselineOfItsFirstTexts) {
  const View inner =
      VStack{.spacing = 0, .children = {fixedBlock("first", 10, 20, 16), fixedBlock("second", 10, 20, 16)}};
  LaidOut stage{HStack{.alignment = VerticalAlignment::firstTextBaseline,
                       .spacing = 0,
                       .children = {fixedBlock("a", 10, 30, 26), inner, row({fixedBlock("b", 10, 6, 5)})}}};
  EXPECT_EQ(stage.frame("first").y, 10);
  EXPECT_EQ(stage.frame("second").y, 30);
  EXPECT_EQ(stage.frame("b").y, 21);
}

TEST(HStackTest, whatIsEmptyLeavesNoGap) {
  LaidOut stage{
      row({EmptyView{}, fixedBlock("a", 10, 10), View(EmptyView{}).frame({.width = 50}), fixedBlock("b", 10, 10)})};
  EXPECT_EQ(stage.frame("a").x, 0);
  EXPECT_EQ(stage.frame("b").x, 20);
  EXPECT_EQ(stage.window().contentSize().width, 30);
}

TEST(HStackTest, aSpacerTakesWhatTheOthersLeave) {
  LaidOut stage{row({fixedBlock("a", 30, 10), Spacer{}, fixedBlock("b", 20, 10)}), 200};
  EXPECT_EQ(stage.frame("a").x, 0);
  EXPECT_EQ(stage.frame("b").x, 180);
}

TEST(HStackTest, twoSpacersShare) {
  LaidOut stage{row({Spacer{}, fixedBlock("a", 20, 10), Spacer{}}), 200};
  EXPECT_EQ(stage.frame("a").x, 90);
}

TEST(HStackTest, aSpacersLeastLengthIsKept) {
  LaidOut stage{row({wideBlock("a", 10, 10), Spacer{.minLength = 40}, fixedBlock("b", 20, 10)}), 200};
  EXPECT_EQ(stage.frame("a").width, 120);
  EXPECT_EQ(stage.frame("b").x, 180);
  EXPECT_EQ(stage.window().contentSize().height, 10);
}

TEST(HStackTest, aSpacerTakesNoHeight) {
  LaidOut stage{
      View(VStack{.spacing = 0, .children = {row({fixedBlock("a", 10, 10), Spacer{}}), fixedBlock("below", 10, 10)}})
          .frame({.width = 200, .height = 100})};
  EXPECT_EQ(stage.frame("below").y - stage.frame("a").y, 10);
}

TEST(HStackTest, withoutAWidthASpacerIsAsLongAsItMustBe) {
  LaidOut stage{row({fixedBlock("a", 30, 10), Spacer{.minLength = 40}, fixedBlock("b", 20, 10)})};
  EXPECT_EQ(stage.frame("b").x, 90);
  EXPECT_EQ(stage.window().contentSize(), (kit::Size{110, 10}));
}

TEST(HStackTest, theFlexibleShareWhatTheRigidLeave) {
  LaidOut stage{row({wideBlock("a", 10, 10), fixedBlock("b", 50, 10), wideBlock("c", 10, 10)}), 210};
  EXPECT_EQ(stage.frame("a"), (kit::Rect{0, 0, 70, 10}));
  EXPECT_EQ(stage.frame("b"), (kit::Rect{80, 0, 50, 10}));
  EXPECT_EQ(stage.frame("c"), (kit::Rect{140, 0, 70, 10}));
}

TEST(HStackTest, oneThatNeedsMoreThanItsShareGetsIt) {
  LaidOut stage{row({wideBlock("a", 10, 10), wideBlock("b", 150, 10)}), 210};
  EXPECT_EQ(stage.frame("b").width, 150);
  EXPECT_EQ(stage.frame("a").width, 50);
}

TEST(HStackTest, aTextGivesWayBeforeTheRigidDo) {
  LaidOut stage{row({Text{"0123456789"}, fixedBlock("b", 50, 10)}), 95};
  EXPECT_EQ(stage.frame("0123456789").width, 35);
  EXPECT_EQ(stage.frame("0123456789").height, 32);
  EXPECT_EQ(stage.frame("b").x, 45);
}

TEST(HStackTest, edgesStandOnWholePoints) {
  LaidOut stage{row({wideBlock("a", 1, 11), wideBlock("b", 1, 10), wideBlock("c", 1, 11)}), 120};
  EXPECT_EQ(stage.frame("a").width, 33);
  EXPECT_EQ(stage.frame("b"), (kit::Rect{43, 1, 34, 10}));
  EXPECT_EQ(stage.frame("c").right(), 120);
}

TEST(HStackTest, withoutChildrenItIsNothing) {
  LaidOut stage{row({})};
  EXPECT_EQ(stage.window().contentSize(), kit::Size{});
}

TEST(VStackTest, childrenStandOneUnderAnother) {
  struct Row {
    kit::TextAlignment alignment = {};
    double x = 0;
  };
  for (const Row& expected : {Row{kit::TextAlignment::leading, 0}, Row{kit::TextAlignment::center, 15},
                              Row{kit::TextAlignment::trailing, 30}}) {
    LaidOut stage{VStack{.alignment = expected.alignment,
                         .spacing = 5,
                         .children = {fixedBlock("a", 10, 20), EmptyView{}, fixedBlock("b", 40, 10)}}};
    EXPECT_EQ(stage.frame("a"), (kit::Rect{expected.x, 0, 10, 20}));
    EXPECT_EQ(stage.frame("b"), (kit::Rect{0, 25, 40, 10}));
    EXPECT_EQ(stage.window().contentSize(), (kit::Size{40, 35}));
  }
}

TEST(VStackTest, aSpacerTakesTheHeightThatIsLeft) {
  LaidOut stage{
      View(VStack{.spacing = 0, .children = {fixedBlock("a", 10, 20), Spacer{.minLength = 5}, fixedBlock("b", 10, 20)}})
          .frame({.height = 100})};
  EXPECT_EQ(stage.frame("b").y, 80);
  EXPECT_EQ(stage.window().contentSize(), (kit::Size{10, 100}));
}

TEST(VStackTest, aSpacerTakesNoWidth) {
  const View column = VStack{.spacing = 0, .children = {fixedBlock("a", 10, 10), Spacer{}}};
  LaidOut stage{View(HStack{.spacing = 0, .children = {column, fixedBlock("beside", 10, 10)}})
                    .frame({.width = 200, .height = 100})};
  EXPECT_EQ(stage.frame("beside").x - stage.frame("a").x, 10);
}

TEST(VStackTest, theTallShareTheHeight) {
  LaidOut stage{
      View(VStack{.spacing = 10, .children = {tallBlock("a", 10, 30), fixedBlock("b", 10, 20), tallBlock("c", 10, 30)}})
          .frame({.height = 100})};
  EXPECT_EQ(stage.frame("a").height, 30);
  EXPECT_EQ(stage.frame("c"), (kit::Rect{0, 70, 10, 30}));
}

TEST(StackTest, anotherSpacingOrAlignmentMovesTheChildren) {
  const auto content = [](kit::TextAlignment alignment, double spacing) -> View {
    return VStack{
        .alignment = alignment, .spacing = spacing, .children = {fixedBlock("a", 10, 10), fixedBlock("b", 30, 10)}};
  };
  Stage stage{content(kit::TextAlignment::leading, 5)};
  stage.open();
  stage.show(content(kit::TextAlignment::trailing, 9));
  EXPECT_EQ(stage.frame("a").x, 20);
  EXPECT_EQ(stage.frame("b").y, 19);
  EXPECT_EQ(stage.window().contentSize().height, 29);
}

TEST(StackTest, anotherRowMovesItsChildren) {
  const auto content = [](VerticalAlignment alignment, double spacing) -> View {
    return HStack{.alignment = alignment,
                  .spacing = spacing,
                  .children = {fixedBlock("a", 10, 10, 10), fixedBlock("b", 10, 30, 10)}};
  };
  Stage stage{content(VerticalAlignment::center, 5)};
  stage.open();
  stage.show(content(VerticalAlignment::firstTextBaseline, 9));
  EXPECT_EQ(stage.frame("a").y, 0);
  EXPECT_EQ(stage.frame("b").x, 19);
}

TEST(StackTest, aSpacerThatGrowsMovesItsNeighbours) {
  const auto content = [](double least) {
    return row({fixedBlock("a", 10, 10), Spacer{.minLength = least}, fixedBlock("b", 10, 10)});
  };
  Stage stage{content(5)};
  stage.open();
  stage.show(content(25));
  EXPECT_EQ(stage.frame("b").x, 55);
}

}  // namespace
}  // namespace tarnwell::view
