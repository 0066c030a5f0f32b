#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "view/Counter.h"
#include "view/Stage.h"
#include "view/controls/text/Text.h"
#include "view/layout/Stack.h"
#include "view/tree/Composite.h"

namespace tarnwell::view {
namespace {

class ChangeTest : public testing::Test {
 protected:
  /// A text with a handler that notes what its value has become.
  template <class T>
  View noting(T value) {
    return View(Text{"content"}).onChange<T>(value, [this](const T& changed) {
      std::ostringstream line;
      line << changed;
      notes.push_back(line.str());
    });
  }

  Lines notes = {};
};

TEST_F(ChangeTest, theFirstValueIsNoChange) {
  Stage stage{noting(1)};
  stage.open();
  stage.close();
  stage.open();
  EXPECT_EQ(notes, Lines{});
}

TEST_F(ChangeTest, everyChangeRunsTheHandlerWithTheNewValue) {
  Stage stage{noting(1)};
  for (const int value : {2, 2, 3, 1}) {
    stage.show(noting(value));
  }
  EXPECT_EQ(notes, (Lines{"2", "3", "1"}));
}

TEST_F(ChangeTest, itRunsInAClosedWindowToo) {
  Stage stage{noting(1)};
  stage.show(noting(2));
  stage.open();
  EXPECT_EQ(notes, Lines{"2"});
}

TEST_F(ChangeTest, twoNansAreNoChange) {
  Stage stage{noting(std::nan(""))};
  stage.show(noting(std::nan("")));
  EXPECT_EQ(notes, Lines{});
  stage.show(noting(0.5));
  stage.show(noting(std::nan("")));
  stage.show(noting(std::nan("")));
  EXPECT_EQ(notes, (Lines{"0.5", "nan"}));
}

TEST_F(ChangeTest, aViewThatIsMountedAnewHasAFirstValueAgain) {
  Stage stage{noting(1)};
  stage.show(Text{"away"});
  stage.show(noting(2));
  EXPECT_EQ(notes, Lines{});
}

TEST_F(ChangeTest, aValueOfAnotherTypeIsAFirstValue) {
  Stage stage{noting(1)};
  stage.show(noting(std::string("two")));
  stage.show(noting(std::string("three")));
  EXPECT_EQ(notes, Lines{"three"});
}

TEST_F(ChangeTest, aChangeByAControlRunsIt) {
  const Numbered numbered{.make = [this](const State<int>& number) -> View {
    return VStack{.children = {noting(number.get()), Button{.title = "next", .action = [number] { number.set(7); }}}};
  }};
  const Stage stage{numbered};
  stage.find<kit::Button>("next").click();
  stage.find<kit::Button>("next").click();
  EXPECT_EQ(notes, Lines{"7"});
}

TEST_F(ChangeTest, handlersThatChangeTheirOwnValueSettle) {
  const Numbered halving{.make = [this](const State<int>& number) {
    return View(Button{.title = "start", .action = [number] { number.set(40); }})
        .onChange<int>(number.get(), [this, number](const int& changed) {
          notes.push_back(std::to_string(changed));
          number.set(changed / 2);
        });
  }};
  const Stage stage{halving};
  stage.find<kit::Button>("start").click();
  EXPECT_EQ(notes, (Lines{"40", "20", "10", "5", "2", "1", "0"}));
}

TEST_F(ChangeTest, handlersChain) {
  const Numbered outer{.make = [this](const State<int>& first) -> View {
    const Numbered inner{.make = [this, first](const State<int>& second) {
      return View(Button{.title = "start", .action = [first] { first.set(1); }})
          .onChange<int>(first.get(),
                         [this, second](const int& changed) {
                           notes.push_back("first " + std::to_string(changed));
                           second.set(changed + 1);
                         })
          .onChange<int>(second.get(),
                         [this](const int& changed) { notes.push_back("second " + std::to_string(changed)); });
    }};
    return inner;
  }};
  const Stage stage{outer};
  stage.find<kit::Button>("start").click();
  EXPECT_EQ(notes, (Lines{"first 1", "second 2"}));
}

TEST_F(ChangeTest, aHandlerSeesTheTreeInLine) {
  Lines seen;
  Stage* stage = nullptr;
  const Numbered numbered{.make = [&](const State<int>& number) -> View {
    const View watched = View(Button{.title = "start", .action = [number] { number.set(1); }})
                             .onChange<int>(number.get(), [&](const int&) { seen.push_back(stage->dump()); });
    return VStack{.children = {watched, Text{std::to_string(number.get())}}};
  }};
  Stage shown{numbered};
  stage = &shown;
  shown.find<kit::Button>("start").click();
  EXPECT_EQ(seen, Lines{"VStack centred, spacing 2\n  Button \"start\"\n  Text \"1\"\n"});
}

TEST_F(ChangeTest, handlersWithoutAnEndStopWithOneLineAndTheViewLivesOn) {
  const Numbered endless{.make = [](const State<int>& number) {
    return View(Button{.title = std::to_string(number.get() % 2), .action = [number] { number.set(number.get() + 1); }})
        .onChange<int>(number.get(), [number](const int& changed) { number.set(changed + 1); });
  }};
  const Stage stage{endless};
  testing::internal::CaptureStderr();
  stage.first<kit::Button>().click();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "tarnwell: the views did not settle; showing them as they are\n");
  EXPECT_EQ(stage.dump(), "Button \"0\"\n");
}

}  // namespace
}  // namespace tarnwell::view
