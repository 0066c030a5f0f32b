#include "view/controls/choices/TabView.h"

#include <gtest/gtest.h>

#include "host/headless/HeadlessHost.h"
#include "view/Block.h"
#include "view/Counter.h"
#include "view/Stage.h"
#include "view/controls/text/Text.h"

namespace tarnwell::view {
namespace {

/// Two tabs, each with a counter that notes when it appears.
class TabViewTest : public testing::Test {
 protected:
  View page(const std::string& name) {
    return View(Counter{.name = name}).onAppear([this, name] { appeared.push_back(name); });
  }

  View tabs() {
    return makeTabView<std::string>(
        {.get = [this] { return selection; }, .set = [this](const std::string& chosen) { selection = chosen; }},
        {{.tag = "dock", .title = "Dock", .symbol = "dock", .content = page("dock page")},
         {.tag = "general", .title = "General", .content = page("general page")}});
  }

  std::string selection = "dock";
  Lines appeared = {};
};

TEST_F(TabViewTest, onlyTheChosenPageIsMounted) {
  Stage stage{tabs()};
  stage.open();
  EXPECT_EQ(stage.dump(), "TabBar \"Tabs\" *\"Dock\" dock \"General\" \nButton \"0\"\n");
  EXPECT_EQ(appeared, Lines{"dock page"});
}

TEST_F(TabViewTest, choosingATabMountsItsPageAfresh) {
  Stage stage{tabs()};
  stage.open();
  stage.find<kit::Button>("dock page").click();
  stage.first<kit::TabBar>().choose(1);
  EXPECT_EQ(selection, "general");
  stage.show(tabs());
  EXPECT_TRUE(stage.has("general page"));
  EXPECT_FALSE(stage.has("dock page"));
  stage.first<kit::TabBar>().choose(0);
  stage.show(tabs());
  EXPECT_EQ(stage.find<kit::Button>("dock page").title(), "0");
  EXPECT_EQ(appeared, (Lines{"dock page", "general page", "dock page"}));
}

TEST_F(TabViewTest, nothingIsMountedWhileTheWindowIsClosed) {
  Stage stage{tabs()};
  EXPECT_FALSE(stage.has("dock page"));
  stage.open();
  stage.find<kit::Button>("dock page").click();
  stage.close();
  EXPECT_FALSE(stage.has("dock page"));
  stage.open();
  EXPECT_EQ(stage.find<kit::Button>("dock page").title(), "0");
  EXPECT_EQ(appeared, (Lines{"dock page", "dock page"}));
}

TEST_F(TabViewTest, aValueThatIsNoTabsShowsNoPage) {
  selection = "about";
  Stage stage{tabs()};
  stage.open();
  EXPECT_EQ(stage.dump(), "TabBar \"Tabs\" \"Dock\" dock \"General\" \n");
  EXPECT_EQ(stage.first<kit::TabBar>().selectedIndex(), -1);
}

TEST_F(TabViewTest, anUpdateKeepsTheChosenPage) {
  Stage stage{tabs()};
  stage.open();
  stage.find<kit::Button>("dock page").click();
  stage.show(tabs());
  EXPECT_EQ(stage.find<kit::Button>("dock page").title(), "1");
  EXPECT_EQ(appeared, Lines{"dock page"});
}

TEST_F(TabViewTest, thePageStandsUnderTheBarAndLearnsOfALowWindow) {
  const View one = TabView{.tabs = {{.label = {.title = "One"}, .content = tallBlock("page", 30, 500)}},
                           .selectedIndex = {.get = [] { return 0; }, .set = [](int) {}}};
  Stage stage{one.frame({.width = 300})};
  stage.host().setAvailableHeight(200);
  stage.open();
  const double barHeight = stage.first<kit::TabBar>().frame().height;
  EXPECT_EQ(stage.window().contentSize(), (kit::Size{300, 200}));
  EXPECT_EQ(stage.frame("page").y, barHeight);
  EXPECT_EQ(stage.frame("page").height, 200 - barHeight);
}

/// Shows tabs in the window's own frame.
class ToolbarHost final : public host_headless::HeadlessHost {
 public:
  using HeadlessHost::peer;
  std::unique_ptr<kit::Peer> peer(kit::AnyControl control, kit::Peer& parent) override {
    if (!std::holds_alternative<kit::TabBar*>(control)) {
      return HeadlessHost::peer(control, parent);
    }
    EXPECT_NE(dynamic_cast<kit::WindowPeer*>(&parent), nullptr);
    return std::make_unique<ToolbarPeer>();
  }

 private:
  class ToolbarPeer final : public kit::Peer {
   public:
    void show(kit::Aspect /*aspect*/) noexcept override {}
    void place(const kit::Rect& /*frame*/) noexcept override {}
    std::optional<kit::Measurement> measure(kit::Proposal /*proposal*/) const override { return kit::Measurement{}; }
  };
};

TEST_F(TabViewTest, tabsOfTheWindowsOwnLeaveTheWholeContentToThePage) {
  const View tabs = TabView{.tabs = {{.label = {.title = "One"}, .content = fixedBlock("one", 300, 50)},
                                     {.label = {.title = "Two"}, .content = fixedBlock("two", 200, 80)}},
                            .selectedIndex = {.get = [this] { return selection == "dock" ? 0 : 1; },
                                              .set = [this](int index) { selection = index == 0 ? "dock" : "two"; }}};
  ToolbarHost host;
  kit::Turn turn;
  HostedWindow window(turn, host, {.identifier = "tabs", .title = "Tabs", .view = tabs});
  window.open();
  const auto controls = [&window] { return window.tree().controls(); };
  EXPECT_EQ(window.window().contentSize(), (kit::Size{300, 50}));
  EXPECT_EQ(controls().at(1)->frame(), (kit::Rect{0, 0, 300, 50}));
}

TEST_F(TabViewTest, aWindowThatClosesAndOpensInOneEventMountsItsPageAfresh) {
  Stage stage{tabs()};
  stage.open();
  stage.find<kit::Button>("dock page").click();
  stage.perform([&] {
    stage.close();
    stage.open();
  });
  EXPECT_EQ(stage.find<kit::Button>("dock page").title(), "0");
  EXPECT_EQ(appeared, (Lines{"dock page", "dock page"}));
}

}  // namespace
}  // namespace tarnwell::view
