#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "kit/controls/buttons/Toggle.h"
#include "kit/controls/text/TextLabel.h"
#include "view/Counter.h"
#include "view/Stage.h"
#include "view/controls/buttons/Toggle.h"
#include "view/controls/text/Text.h"
#include "view/layout/Spacer.h"
#include "view/layout/Stack.h"
#include "view/state/Environment.h"
#include "view/tree/Composite.h"

namespace tarnwell::view {
namespace {

View column(std::vector<View> children) { return VStack{.children = std::move(children)}; }

View fixedSwitch(bool on) {
  return Toggle{.title = "switch", .isOn = {.get = [on] { return on; }, .set = [](bool) {}}};
}

/// A text that counts how often it is made.
struct Counted {
  std::string text = {};
  int* bodies = nullptr;
  Environment<FontKey> font = {};

  friend bool operator==(const Counted& a, const Counted& b) { return a.text == b.text; }
  auto stored() { return std::tie(font); }
  View body() const {
    ++*bodies;
    return Text{text};
  }
};

TEST(UpdateTest, theSameTypeKeepsItsControl) {
  Stage stage{Text{"a"}};
  const kit::Control* before = &stage.first<kit::Control>();
  stage.show(Text{"b"});
  EXPECT_EQ(&stage.first<kit::Control>(), before);
  EXPECT_EQ(stage.dump(), "Text \"b\"\n");
}

TEST(UpdateTest, anotherTypeReplacesIt) {
  Stage stage{Text{"a"}};
  stage.open();
  stage.told();
  stage.show(fixedSwitch(true));
  const Lines told = stage.told();
  EXPECT_EQ(told.front(), "text \"a\": removed");
  EXPECT_EQ(stage.dump(), "Toggle \"switch\": on\n");
  EXPECT_EQ(stage.hosted().tree().controls().size(), 1U);
}

TEST(UpdateTest, anotherIdentityReplacesTheSameType) {
  Stage stage{View(Text{"a"}).identity(1)};
  stage.told();
  stage.show(View(Text{"b"}).identity(1));
  EXPECT_EQ(stage.told().back(), "text \"b\": title");
  stage.show(View(Text{"c"}).identity(2));
  EXPECT_EQ(stage.told().front(), "text \"b\": removed");
  EXPECT_EQ(stage.dump(), "Text \"c\"\n");
}

TEST(UpdateTest, oneChangedValueIsOneCall) {
  Stage stage{column({Text{"a"}, fixedSwitch(false), Text{"b"}})};
  stage.open();
  stage.told();
  stage.show(column({Text{"a"}, fixedSwitch(true), Text{"b"}}));
  EXPECT_EQ(stage.told(), Lines{"switch \"switch\": value"});
}

TEST(UpdateTest, aViewThatSaysTheSameInTheSameEnvironmentIsPassedOver) {
  int bodies = 0;
  const auto content = [&](const std::string& text, kit::FontRole font) {
    return View(Counted{.text = text, .bodies = &bodies}).font(font);
  };
  Stage stage{content("a", kit::FontRole::body)};
  stage.show(content("a", kit::FontRole::body));
  EXPECT_EQ(bodies, 1);
  stage.show(content("b", kit::FontRole::body));
  EXPECT_EQ(bodies, 2);
  stage.show(content("b", kit::FontRole::caption));
  EXPECT_EQ(bodies, 3);
}

TEST(UpdateTest, nothingChangedIsNoCall) {
  const View content = column({Text{"a"}, fixedSwitch(false), View(Text{"b"}).font(kit::FontRole::caption)});
  Stage stage{content};
  stage.open();
  stage.told();
  stage.show(content);
  EXPECT_EQ(stage.told(), Lines{});
}

TEST(UpdateTest, aChangedTextOfTheSameSizeMovesNothing) {
  Stage stage{column({Text{"a"}, Text{"below"}})};
  stage.open();
  stage.told();
  stage.show(column({Text{"b"}, Text{"below"}}));
  EXPECT_EQ(stage.told(), (Lines{"text \"b\": accessible name", "text \"b\": title"}));
}

TEST(UpdateTest, aLongerTextMovesWhatStandsBelowIt) {
  const auto content = [](const std::string& text) {
    return column({View(Text{text}).frame({.width = 70}), Text{"below"}});
  };
  Stage stage{content("short")};
  stage.open();
  EXPECT_EQ(stage.frame("below").y, 18);
  stage.show(content("a text of two lines"));
  EXPECT_EQ(stage.frame("below").y, 34);
  EXPECT_EQ(stage.window().contentSize().height, 50);
}

TEST(UpdateTest, listsGrowAndShrinkAtTheirEnd) {
  Stage stage{column({Counter{.name = "a"}, Counter{.name = "b"}})};
  stage.find<kit::Button>("a").click();
  const kit::Control* first = &stage.find<kit::Control>("a");
  stage.show(column({Counter{.name = "a"}, Counter{.name = "b"}, Text{"c"}}));
  EXPECT_EQ(stage.dump(), "VStack centred, spacing 2\n  Button \"1\"\n  Button \"0\"\n  Text \"c\"\n");
  stage.show(column({Counter{.name = "a"}}));
  EXPECT_EQ(stage.dump(), "VStack centred, spacing 2\n  Button \"1\"\n");
  stage.show(column({}));
  EXPECT_EQ(stage.dump(), "VStack centred, spacing 2\n");
  EXPECT_NE(first, nullptr);
}

TEST(UpdateTest, anAbsentRowLeavesItsNeighboursAlone) {
  Stage stage{column({Counter{.name = "a"}, Text{"between"}, Counter{.name = "b"}})};
  stage.find<kit::Button>("b").click();
  stage.show(column({Counter{.name = "a"}, EmptyView{}, Counter{.name = "b"}}));
  EXPECT_EQ(stage.dump(), "VStack centred, spacing 2\n  Button \"0\"\n  Button \"1\"\n");
}

TEST(UpdateTest, anotherModifierReplacesWhatStandsBelow) {
  Stage stage{Counter{}};
  stage.find<kit::Button>("count").click();
  stage.show(View(Counter{}).fixedSize());
  EXPECT_EQ(stage.dump(), "Fixed size\n  Button \"0\"\n");
}

TEST(UpdateTest, theOrderOfTheControlsIsTheTreesOrder) {
  Stage stage{column({Text{"a"}, EmptyView{}, Text{"c"}})};
  stage.open();
  stage.told();
  stage.show(column({Text{"a"}, fixedSwitch(false), Text{"c"}}));
  const auto& controls = stage.window().controls();
  ASSERT_EQ(controls.size(), 3U);
  EXPECT_EQ(controls[1], &stage.find<kit::Toggle>("switch"));
  EXPECT_EQ(stage.told().back(), "window stage: 3 controls in order");
}

TEST(UpdateTest, aClosedWindowKnowsItsControlsToo) {
  Stage stage{column({Text{"a"}, Text{"b"}})};
  stage.open();
  stage.close();
  stage.show(column({Text{"a"}}));
  EXPECT_EQ(stage.window().controls(), stage.hosted().tree().controls());
}

TEST(UpdateTest, anInnerChangeLeavesTheOuterBodyAlone) {
  int outerBodies = 0;
  const Numbered outer{.make = [&outerBodies](const State<int>&) -> View {
    ++outerBodies;
    return Counter{};
  }};
  const Stage stage{outer};
  stage.find<kit::Button>("count").click();
  EXPECT_EQ(outerBodies, 1);
  EXPECT_EQ(stage.dump(), "Button \"1\"\n");
}

TEST(UpdateTest, aBodyIsMadeOnceThoughItsAncestorChangesToo) {
  int innerBodies = 0;
  const Numbered outer{.make = [&innerBodies](const State<int>& first) -> View {
    return Numbered{.make = [&innerBodies, first](const State<int>& second) -> View {
      ++innerBodies;
      return Button{.title = std::to_string(first.get() + second.get()), .action = [first, second] {
                      second.set(1);
                      first.set(1);
                    }};
    }};
  }};
  const Stage stage{outer};
  stage.first<kit::Button>().click();
  EXPECT_EQ(stage.dump(), "Button \"2\"\n");
  EXPECT_EQ(innerBodies, 2);
}

}  // namespace
}  // namespace tarnwell::view
