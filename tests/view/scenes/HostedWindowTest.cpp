#include "view/scenes/HostedWindow.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "view/Block.h"
#include "view/Counter.h"
#include "view/Stage.h"
#include "view/controls/text/Text.h"
#include "view/layout/Stack.h"
#include "view/tree/Composite.h"

namespace tarnwell::view {
namespace {

TEST(HostedWindowTest, mountingPaintsNothing) {
  host_headless::HeadlessHost host;
  kit::Turn turn;
  const HostedWindow window(turn, host, {.identifier = "w", .title = "W", .view = Text{"a"}});
  EXPECT_EQ(host.journal().lines(),
            (Lines{"window w: title", "window w: 0 x 0", "window w: hidden", "window w: 0 controls in order",
                   "text \"a\": style", "text \"a\": title", "text \"a\": enabled", "text \"a\": accessible name",
                   "text \"a\": accessible description", "text \"a\": place", "window w: 1 controls in order"}));
}

TEST(HostedWindowTest, openingLaysOutOnceAndThenShows) {
  Stage stage{Text{"a"}};
  stage.open();
  EXPECT_EQ(stage.told(), (Lines{"window stage: 7 x 16", "text \"a\": place", "window stage: shown"}));
  EXPECT_TRUE(stage.window().isVisible());
}

TEST(HostedWindowTest, closingHidesAndNothingElse) {
  Stage stage{Text{"a"}};
  stage.open();
  stage.told();
  stage.close();
  EXPECT_EQ(stage.told(), Lines{"window stage: hidden"});
  EXPECT_FALSE(stage.hosted().tree().isShown());
}

TEST(HostedWindowTest, theStateOutlivesAClosing) {
  Stage stage{Counter{}};
  stage.open();
  stage.find<kit::Button>("count").click();
  stage.close();
  stage.open();
  EXPECT_EQ(stage.dump(), "Button \"1\"\n");
}

TEST(HostedWindowTest, oneThatItsOwnAppearHandlerClosesNeverFlashes) {
  Stage* self = nullptr;
  Stage stage{View(Text{"launcher"}).onAppear([&self] { self->close(); })};
  self = &stage;
  stage.open();
  EXPECT_FALSE(stage.window().isVisible());
  const Lines told = stage.told();
  EXPECT_EQ(std::count(told.begin(), told.end(), "window stage: shown"), 0);
}

TEST(HostedWindowTest, aChangeWhileClosedIsLaidOutAtTheNextOpening) {
  Stage stage{Text{"a"}};
  stage.open();
  stage.close();
  stage.told();
  stage.show(Text{"longer"});
  EXPECT_EQ(stage.told(), (Lines{"text \"longer\": accessible name", "text \"longer\": title"}));
  stage.open();
  EXPECT_EQ(stage.told(), (Lines{"window stage: 42 x 16", "text \"longer\": place", "window stage: shown"}));
}

TEST(HostedWindowTest, severalChangesInOneEventAreLaidOutOnce) {
  Stage stage{VStack{.children = {Text{"a"}, Text{"b"}}}};
  stage.open();
  stage.told();
  stage.perform([&] {
    stage.show(VStack{.children = {Text{"longer"}, Text{"b"}}});
    stage.show(VStack{.children = {Text{"longest"}, Text{"b"}}});
  });
  const Lines told = stage.told();
  EXPECT_EQ(std::count(told.begin(), told.end(), "window stage: 49 x 34"), 1);
  EXPECT_EQ(std::count(told.begin(), told.end(), "window stage: 42 x 34"), 0);
}

TEST(HostedWindowTest, theScreensHeightCapsIt) {
  Stage stage{tallBlock("a", 10, 500)};
  stage.host().setAvailableHeight(300);
  stage.open();
  EXPECT_EQ(stage.window().contentSize(), (kit::Size{10, 300}));
}

TEST(HostedWindowTest, otherMetricsLayOutAnew) {
  Stage stage{tallBlock("a", 10, 500)};
  stage.open();
  stage.host().setAvailableHeight(200);
  stage.window().metricsChanged();
  EXPECT_EQ(stage.frame("a").height, 200);
}

TEST(HostedWindowTest, droppingItTakesEverythingAway) {
  Stage stage{VStack{.children = {Text{"a"}, Text{"b"}}}};
  stage.open();
  stage.told();
  stage.drop();
  const Lines told = stage.told();
  // Before they go: a window must not be left with the order of controls that are gone.
  EXPECT_EQ(told.front(), "window stage: 0 controls in order");
  EXPECT_EQ(std::count(told.begin(), told.end(), "text \"a\": removed"), 1);
  EXPECT_EQ(std::count(told.begin(), told.end(), "text \"b\": removed"), 1);
}

TEST(HostedWindowTest, twoWindowsSettleInOneTurn) {
  host_headless::HeadlessHost host;
  kit::Turn turn;
  HostedWindow first(turn, host, {.identifier = "first", .view = Text{"a"}});
  HostedWindow second(turn, host,
                      {.identifier = "second", .view = View(Text{"b"}).onAppear([&first] { first.open(); })});
  second.open();
  EXPECT_TRUE(first.window().isVisible());
  EXPECT_TRUE(second.window().isVisible());
}

}  // namespace
}  // namespace tarnwell::view
