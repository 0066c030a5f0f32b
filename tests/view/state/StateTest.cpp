#include "view/state/State.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>

#include "view/Counter.h"
#include "view/Stage.h"
#include "view/controls/text/Text.h"
#include "view/layout/Stack.h"

namespace tarnwell::view {
namespace {

TEST(StateTest, aPressChangesWhatIsShown) {
  const Stage stage{Counter{}};
  stage.find<kit::Button>("count").click();
  stage.find<kit::Button>("count").click();
  EXPECT_EQ(stage.dump(), "Button \"2\"\n");
}

TEST(StateTest, oneValueUsedTwiceHasTwoStates) {
  const View counter = Counter{};
  const Stage stage{VStack{.children = {counter, counter}}};
  stage.first<kit::Button>().click();
  EXPECT_EQ(stage.dump(), "VStack centred, spacing 2\n  Button \"1\"\n  Button \"0\"\n");
}

TEST(StateTest, anUpdateKeepsTheStateWhateverItsInitialValueIsThen) {
  Stage stage{Counter{}};
  stage.find<kit::Button>("count").click();
  stage.show(Counter{.name = "renamed", .count = 70});
  EXPECT_EQ(stage.dump(), "Button \"1\"\n");
  stage.find<kit::Button>("renamed").click();
  EXPECT_EQ(stage.dump(), "Button \"2\"\n");
}

TEST(StateTest, aViewThatIsMountedLaterStartsAfresh) {
  const View counter = Counter{.count = 5};
  Stage stage{counter};
  stage.find<kit::Button>("count").click();
  stage.show(Text{"away"});
  stage.show(counter);
  EXPECT_EQ(stage.dump(), "Button \"5\"\n");
}

TEST(StateTest, theStateMovesWithThePlaceNotWithTheValue) {
  Stage stage{VStack{.children = {Counter{.name = "a"}, Counter{.name = "b"}}}};
  stage.find<kit::Button>("a").click();
  stage.show(VStack{.children = {Counter{.name = "b"}, Counter{.name = "a"}}});
  EXPECT_EQ(stage.find<kit::Button>("b").title(), "1");
  EXPECT_EQ(stage.find<kit::Button>("a").title(), "0");
}

// Counts how often its body is made.
struct Watched {
  std::shared_ptr<int> bodies = std::make_shared<int>(0);
  std::shared_ptr<Binding<double>> remote = std::make_shared<Binding<double>>();
  State<double> number = 1;

  auto stored() { return std::tie(number); }
  View body() const {
    ++*bodies;
    *remote = number.binding();
    return Text{number.get() == 1 ? "one" : "another"};
  }
};

TEST(StateTest, theSameValueChangesNothing) {
  const Watched watched;
  Stage stage{watched};
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(*watched.bodies, 1);
  stage.perform([&] { watched.remote->set(1); });
  EXPECT_EQ(*watched.bodies, 1);
  stage.perform([&] { watched.remote->set(nan); });
  EXPECT_EQ(*watched.bodies, 2);
  stage.perform([&] { watched.remote->set(nan); });
  EXPECT_EQ(*watched.bodies, 2);
}

TEST(StateTest, severalChangesInOneEventMakeOneBody) {
  const Watched watched;
  Stage stage{watched};
  stage.perform([&] {
    watched.remote->set(2);
    watched.remote->set(3);
    watched.remote->set(4);
  });
  EXPECT_EQ(*watched.bodies, 2);
  EXPECT_EQ(watched.remote->get(), 4);
}

TEST(StateTest, aBindingThatOutlivesItsPlaceIsHarmless) {
  const Watched watched;
  Stage stage{watched};
  stage.show(Text{"away"});
  stage.perform([&] { watched.remote->set(7); });
  EXPECT_EQ(watched.remote->get(), 7);
  EXPECT_EQ(*watched.bodies, 1);
  EXPECT_EQ(stage.dump(), "Text \"away\"\n");
}

TEST(StateTest, beforeItIsMountedItHasItsInitialValue) { EXPECT_EQ(State<int>(5).get(), 5); }

TEST(StateDeathTest, changingItBeforeItIsMountedIsAFault) {
  const char* message =
      R"(tarnwell: a state was changed or bound outside of a mounted view; is it named in stored\(\)\?)";
  const State<int> state = 5;
  EXPECT_DEATH(state.set(6), message);
  EXPECT_DEATH((void)state.binding(), message);
}

// Forgets to name its state.
struct Forgetful {
  State<int> count = 0;
  View body() const {
    return Button{.title = "press", .action = [count = count] { count.set(1); }};
  }
};

TEST(StateDeathTest, changingOneThatStoredForgetsIsAFault) {
  const Stage stage{Forgetful{}};
  EXPECT_DEATH(stage.first<kit::Button>().click(), "is it named in stored\\(\\)\\?");
}

}  // namespace
}  // namespace tarnwell::view
