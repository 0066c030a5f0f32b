#include <gtest/gtest.h>

#include "view/Counter.h"
#include "view/Stage.h"
#include "view/controls/text/Text.h"
#include "view/layout/Spacer.h"
#include "view/layout/Stack.h"
#include "view/tree/Composite.h"

namespace tarnwell::view {
namespace {

class AppearTest : public testing::Test {
 protected:
  /// A text that notes its name whenever it appears.
  View noting(const std::string& name) {
    return View(Text{name}).onAppear([this, name] { appeared.push_back(name); });
  }

  Lines appeared = {};
};

TEST_F(AppearTest, aViewAppearsAtEveryShowingOfItsWindow) {
  Stage stage{noting("a")};
  EXPECT_EQ(appeared, Lines{});
  stage.open();
  EXPECT_EQ(appeared, Lines{"a"});
  stage.close();
  stage.open();
  EXPECT_EQ(appeared, (Lines{"a", "a"}));
}

TEST_F(AppearTest, openingAnOpenWindowIsNoShowing) {
  Stage stage{noting("a")};
  stage.open();
  stage.open();
  stage.close();
  stage.close();
  EXPECT_EQ(appeared, Lines{"a"});
}

TEST_F(AppearTest, anUpdateIsNoShowing) {
  Stage stage{noting("a")};
  stage.open();
  stage.show(noting("b"));
  EXPECT_EQ(appeared, Lines{"a"});
}

TEST_F(AppearTest, theNewestHandlerRuns) {
  Stage stage{noting("a")};
  stage.show(noting("b"));
  stage.open();
  EXPECT_EQ(appeared, Lines{"b"});
}

TEST_F(AppearTest, aViewThatIsPutIntoAnOpenWindowAppears) {
  Stage stage{VStack{.children = {noting("a"), EmptyView{}}}};
  stage.open();
  stage.show(VStack{.children = {noting("a"), noting("b")}});
  EXPECT_EQ(appeared, (Lines{"a", "b"}));
  stage.show(VStack{.children = {noting("a"), EmptyView{}}});
  stage.show(VStack{.children = {noting("a"), noting("c")}});
  EXPECT_EQ(appeared, (Lines{"a", "b", "c"}));
}

TEST_F(AppearTest, aViewThatIsPutIntoAClosedWindowWaitsForItsShowing) {
  Stage stage{EmptyView{}};
  stage.open();
  stage.close();
  stage.show(noting("a"));
  EXPECT_EQ(appeared, Lines{});
  stage.open();
  EXPECT_EQ(appeared, Lines{"a"});
}

TEST_F(AppearTest, ancestorsAppearFirstHoweverTheyCome) {
  const View family = View(VStack{.children = {noting("first"), noting("second")}}).onAppear([this] {
    appeared.emplace_back("parent");
  });
  const Lines inOrder = {"parent", "first", "second"};
  Stage stage{family};
  stage.open();
  EXPECT_EQ(appeared, inOrder);
  appeared.clear();
  stage.show(Text{"away"});
  stage.show(family);
  EXPECT_EQ(appeared, inOrder);
}

TEST_F(AppearTest, nothingAppearsInAWindowThatIsClosedInTheSameEvent) {
  Stage stage{noting("a")};
  stage.perform([&] {
    stage.open();
    stage.close();
  });
  EXPECT_EQ(appeared, Lines{});
}

TEST_F(AppearTest, aHandlerSeesTheWholeTreeMounted) {
  bool sawTheOther = false;
  Stage stage{EmptyView{}};
  stage.open();
  stage.show(VStack{.children = {View(Text{"a"}).onAppear([&] { sawTheOther = stage.has("b"); }), Text{"b"}}});
  EXPECT_TRUE(sawTheOther);
}

TEST_F(AppearTest, whatAHandlerChangesIsShownFirst) {
  const Numbered numbered{.make = [](const State<int>& number) {
    return View(Text{number.get() == 0 ? "placeholder" : "loaded"}).onAppear([number] { number.set(1); });
  }};
  Stage stage{numbered};
  stage.open();
  EXPECT_EQ(stage.told(), (Lines{"text \"loaded\": accessible name", "text \"loaded\": title", "window stage: 42 x 16",
                                 "text \"loaded\": place", "window stage: shown"}));
}

TEST_F(AppearTest, aWindowThatOpensTwiceInOneEventAppearsOnce) {
  Stage stage{noting("a")};
  stage.perform([&] {
    stage.open();
    stage.close();
    stage.open();
  });
  EXPECT_EQ(appeared, Lines{"a"});
}

TEST_F(AppearTest, aWindowThatClosesAndOpensInOneEventAppearsAgain) {
  Stage stage{noting("a")};
  stage.open();
  stage.perform([&] {
    stage.close();
    stage.open();
  });
  EXPECT_EQ(appeared, (Lines{"a", "a"}));
}

}  // namespace
}  // namespace tarnwell::view
