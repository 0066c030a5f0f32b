#include <gtest/gtest.h>

#include <set>

#include "view/Block.h"
#include "view/Stage.h"
#include "view/controls/containers/Form.h"
#include "view/controls/containers/LabeledRow.h"
#include "view/controls/containers/Section.h"
#include "view/controls/text/Text.h"
#include "view/layout/Spacer.h"
#include "view/layout/Stack.h"

namespace tarnwell::view {
namespace {

std::vector<const BlockControl*> blocks(const Stage& stage) {
  std::vector<const BlockControl*> found;
  for (const char* name : {"a", "b", "c"}) {
    found.push_back(&stage.find<BlockControl>(name));
  }
  return found;
}

std::size_t measurements(const Stage& stage) {
  std::size_t count = 0;
  for (const BlockControl* block : blocks(stage)) {
    count += block->proposals().size();
  }
  return count;
}

/// Stacks in stacks in a frame, so that each block is asked for over and over.
View nested(double width, const View& a = fixedBlock("a", 10, 10)) {
  const View inner = HStack{.children = {a, Spacer{}, wideBlock("b", 10, 10)}};
  return View(VStack{.children = {inner, HStack{.children = {VStack{.children = {fixedBlock("c", 10, 10)}}}}}})
      .frame({.width = width})
      .frame({.maxHeight = 500});
}

TEST(MeasureTest, noProposalIsMeasuredTwice) {
  Stage stage{nested(200)};
  stage.open();
  for (const BlockControl* block : blocks(stage)) {
    for (std::size_t i = 0; i < block->proposals().size(); ++i) {
      for (std::size_t j = 0; j < i; ++j) {
        EXPECT_NE(block->proposals()[i], block->proposals()[j]);
      }
    }
  }
}

TEST(MeasureTest, aLayoutWithoutAChangeMeasuresNothing) {
  Stage stage{nested(200)};
  stage.open();
  const std::size_t before = measurements(stage);
  stage.show(nested(200));
  stage.close();
  stage.open();
  EXPECT_EQ(measurements(stage), before);
}

TEST(MeasureTest, onlyWhatChangedIsMeasuredAgain) {
  Stage stage{nested(200)};
  stage.open();
  const std::size_t before = stage.find<BlockControl>("c").proposals().size();
  const std::size_t changed = stage.find<BlockControl>("a").proposals().size();
  stage.show(nested(200, fixedBlock("a", 10, 11)));
  EXPECT_EQ(stage.find<BlockControl>("c").proposals().size(), before);
  EXPECT_GT(stage.find<BlockControl>("a").proposals().size(), changed);
  EXPECT_EQ(stage.frame("a").height, 11);
}

TEST(MeasureTest, otherMetricsMeasureEverythingAnew) {
  Stage stage{nested(200)};
  stage.open();
  const std::size_t before = measurements(stage);
  stage.window().metricsChanged();
  EXPECT_EQ(measurements(stage), 2 * before);
}

TEST(MeasureTest, aClosedWindowIsMeasuredWhenItIsShown) {
  Stage stage{nested(200)};
  EXPECT_EQ(measurements(stage), 0U);
  stage.open();
  stage.close();
  const std::size_t before = measurements(stage);
  stage.window().metricsChanged();
  EXPECT_EQ(measurements(stage), before);
  stage.open();
  EXPECT_EQ(measurements(stage), 2 * before);
}

TEST(MeasureTest, everyWidthThatATextEverHadIsNotKeptForEver) {
  // A neighbour that is ever wider offers ever another width: what was measured long ago is forgotten again.
  const auto content = [](double width) {
    return View(HStack{.children = {fixedBlock("a", width, 10), wideBlock("b", 10, 10), fixedBlock("c", 10, 10)}})
        .frame({.width = 2000});
  };
  Stage stage{content(1)};
  stage.open();
  for (int width = 2; width < 500; ++width) {
    stage.show(content(width));
  }
  const std::size_t before = stage.find<BlockControl>("b").proposals().size();
  stage.show(content(1));
  EXPECT_GT(stage.find<BlockControl>("b").proposals().size(), before);
  EXPECT_EQ(stage.frame("b").width, 2000 - 1 - 10 - 16);
}

}  // namespace
}  // namespace tarnwell::view
