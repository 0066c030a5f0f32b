#include "view/scenes/HostingView.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "view/Block.h"
#include "view/Counter.h"
#include "view/Stage.h"
#include "view/controls/text/Text.h"
#include "view/layout/Stack.h"
#include "view/tree/Composite.h"
#include "view/tree/Representable.h"

namespace tarnwell::view {
namespace {

/// Hosts a view.
struct Hosting {
  struct Coordinator {};
  using NSView = HostingView;
  using Context = RepresentableContext<Coordinator>;

  View content;

  std::shared_ptr<Coordinator> makeCoordinator() const { return std::make_shared<Coordinator>(); }
  std::unique_ptr<HostingView> makeNSView(Context& /*context*/) const { return std::make_unique<HostingView>(content); }
  void updateNSView(HostingView& /*hostingView*/, Context& /*context*/) const {}
};

class HostingViewTest : public testing::Test {
 protected:
  /// A text that a test makes longer from outside.
  View growing() {
    return Numbered{.make = [this](const State<int>& number) {
      remote = number.binding();
      return Text{std::string(static_cast<std::size_t>(number.get() + 1), 'x')};
    }};
  }

  Binding<int> remote;
};

TEST_F(HostingViewTest, isAsLargeAsItsContent) {
  Stage stage{Hosting{.content = Text{"Hosted"}}};
  stage.open();
  EXPECT_EQ(stage.window().contentSize(), (kit::Size{42, 16}));
}

TEST_F(HostingViewTest, isLaidOutOnceAtTheFirstShowing) {
  Stage stage{Hosting{.content = Text{"Hosted"}}};
  stage.open();
  const Lines told = stage.told();
  EXPECT_EQ(std::count(told.begin(), told.end(), "window stage: 42 x 16"), 1);
  EXPECT_EQ(told.back(), "window stage: shown");
}

TEST_F(HostingViewTest, contentThatGrowsMovesWhatStandsAroundIt) {
  Stage stage{HStack{.children = {Hosting{.content = growing()}, Text{"after"}}}};
  stage.open();
  const double before = stage.frame("after").x;
  stage.perform([this] { remote.set(4); });
  EXPECT_EQ(stage.frame("after").x, before + 4 * 7);
  EXPECT_EQ(stage.first<HostingView>().frame().width, 5 * 7);
  stage.perform([this] { remote.set(0); });
  EXPECT_EQ(stage.frame("after").x, before);
}

TEST_F(HostingViewTest, contentThatGrowsInARoomOfItsOwnIsPlacedThere) {
  Stage stage{View(Hosting{.content = growing()}).frame({.width = 100, .height = 16})};
  stage.open();
  stage.perform([this] { remote.set(4); });
  EXPECT_EQ(stage.window().contentSize(), (kit::Size{100, 16}));
  EXPECT_EQ(stage.first<HostingView>().tree()->controls().front()->frame(), (kit::Rect{0, 0, 35, 16}));
}

TEST_F(HostingViewTest, contentThatStaysAsLargeIsPlacedAnew) {
  Stage stage{Hosting{.content = Numbered{.make = [this](const State<int>& number) -> View {
                        remote = number.binding();
                        const std::string first(number.get() == 0 ? 3 : 1, 'x');
                        return HStack{.children = {Text{first}, Text{std::string(4 - first.size(), 'y')}}};
                      }}}};
  stage.open();
  const kit::Control& second = *stage.first<HostingView>().tree()->controls().back();
  const double before = second.frame().x;
  stage.perform([this] { remote.set(1); });
  EXPECT_EQ(second.frame().x, before - 2 * 7);
}

TEST_F(HostingViewTest, otherMetricsReachItsContent) {
  Stage stage{Hosting{.content = tallBlock("hosted", 10, 500)}};
  stage.open();
  const auto& block = dynamic_cast<BlockControl&>(*stage.first<HostingView>().tree()->controls().front());
  const std::size_t asked = block.proposals().size();
  stage.window().metricsChanged();
  EXPECT_GT(block.proposals().size(), asked);
}

TEST_F(HostingViewTest, contentAppearsAtEveryShowingOfTheWindow) {
  int appeared = 0;
  Stage stage{Hosting{.content = View(Text{"Hosted"}).onAppear([&appeared] { ++appeared; })}};
  EXPECT_EQ(appeared, 0);
  stage.open();
  EXPECT_EQ(appeared, 1);
  stage.close();
  stage.open();
  EXPECT_EQ(appeared, 2);
}

TEST_F(HostingViewTest, contentThatComesIntoAnOpenWindowAppears) {
  int appeared = 0;
  Stage stage{Text{"before"}};
  stage.open();
  stage.show(Hosting{.content = View(Text{"Hosted"}).onAppear([&appeared] { ++appeared; })});
  EXPECT_EQ(appeared, 1);
}

TEST_F(HostingViewTest, itsControlsStandInTheWindowInTheOrderOfTheTree) {
  Stage stage{VStack{.children = {Text{"a"}, Hosting{.content = growing()}, Text{"c"}}}};
  stage.open();
  stage.perform([this] { remote.set(1); });
  std::vector<std::string> names;
  for (const kit::Control* control : stage.window().controls()) {
    EXPECT_EQ(control->window(), &stage.window());
    names.push_back(control->accessibleName());
  }
  EXPECT_EQ(names, (Lines{"a", "", "xx", "c"}));
}

TEST_F(HostingViewTest, contentThatComesByItselfStandsInTheWindowToo) {
  const Numbered exchanging{.make = [this](const State<int>& number) {
    remote = number.binding();
    return number.get() == 0 ? View(Text{"one"}) : View(Counter{.name = "two"});
  }};
  Stage stage{Hosting{.content = exchanging}};
  stage.open();
  stage.perform([this] { remote.set(1); });
  EXPECT_EQ(stage.find<kit::Button>("two").window(), &stage.window());
  EXPECT_EQ(stage.window().controls().size(), 2U);
}

TEST_F(HostingViewTest, hasAnEnvironmentOfItsOwn) {
  Stage stage{View(Hosting{.content = Counter{}}).disabled(true)};
  stage.open();
  EXPECT_FALSE(stage.first<HostingView>().isEnabled());
  EXPECT_TRUE(stage.first<HostingView>().tree()->controls().front()->isEnabled());
}

TEST_F(HostingViewTest, contentIsGoneWhileTheEventThatTookItAwayStillRuns) {
  Stage stage{Hosting{.content = Text{"Hosted"}}};
  const auto& hosting = stage.first<HostingView>();
  stage.perform([&] {
    stage.turn().nestedLoop([&] { stage.show(Text{"away"}); });
    EXPECT_EQ(hosting.tree(), nullptr);
  });
}

TEST_F(HostingViewTest, withoutATurnNothingIsMounted) {
  Stage stage{Text{"window"}};
  HostingView hosting{Text{"Hosted"}};
  hosting.attach(hosting.makePeer(stage.host(), *stage.window().peer()));
  EXPECT_EQ(hosting.tree(), nullptr);
  EXPECT_EQ(hosting.measure({}).size, kit::Size{});
}

TEST_F(HostingViewTest, onePutSomewhereElseBeginsAnew) {
  Stage stage{Text{"window"}};
  HostingView hosting{Text{"Hosted"}};
  hosting.joinTurn(stage.turn());
  int grown = 0;
  hosting.setSizeAction([&grown] { ++grown; });
  for (int place = 0; place < 2; ++place) {
    hosting.attach(hosting.makePeer(stage.host(), *stage.window().peer()));
    EXPECT_EQ(hosting.hostedControls().size(), 1U);
    hosting.attach(nullptr);
  }
  EXPECT_EQ(grown, 0);
}

TEST_F(HostingViewTest, contentThatIsGoneGrowsNoMore) {
  Stage stage{Hosting{.content = growing()}};
  stage.open();
  stage.show(Text{"away"});
  stage.told();
  stage.perform([this] { remote.set(4); });
  EXPECT_EQ(stage.told(), Lines{});
}

}  // namespace
}  // namespace tarnwell::view
