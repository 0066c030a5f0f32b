#include "view/controls/buttons/ButtonStyle.h"

#include <gtest/gtest.h>

#include "view/Stage.h"
#include "view/controls/buttons/Button.h"
#include "view/controls/text/Text.h"
#include "view/layout/Spacer.h"
#include "view/layout/Stack.h"

namespace tarnwell::view {
namespace {

class ButtonStyleTest : public testing::Test {
 protected:
  /// Draws a button as its label, and keeps what it was given.
  PrimitiveButtonStyle keeping() {
    return [this](const ButtonConfiguration& configuration) {
      given.push_back(configuration);
      return configuration.label;
    };
  }

  View noting(const std::string& title) {
    return Button{.title = title, .action = [this, title] { notes.push_back(title); }};
  }

  std::vector<ButtonConfiguration> given = {};
  Lines notes = {};
};

TEST_F(ButtonStyleTest, itDrawsEveryButtonBelow) {
  const Stage stage{View(VStack{.children = {noting("a"), noting("b")}}).environment<ButtonStyleKey>(keeping())};
  EXPECT_EQ(stage.dump(), "VStack centred, spacing 2\n  Text \"a\"\n  Text \"b\"\n");
}

TEST_F(ButtonStyleTest, itIsCalledOnceForEachMountingAndUpdate) {
  const View content = noting("a").environment<ButtonStyleKey>(keeping());
  Stage stage{content};
  stage.open();
  EXPECT_EQ(stage.dump(), stage.dump());
  EXPECT_EQ(given.size(), 1U);
  stage.show(content);
  EXPECT_EQ(given.size(), 2U);
}

TEST_F(ButtonStyleTest, itIsToldTheRole) {
  const Stage stage{
      View(VStack{.children = {noting("a"), Button{.title = "b", .role = kit::Button::Role::destructive}}})
          .environment<ButtonStyleKey>(keeping())};
  ASSERT_EQ(given.size(), 2U);
  EXPECT_EQ(given[0].role, std::nullopt);
  EXPECT_EQ(given[1].role, kit::Button::Role::destructive);
}

TEST_F(ButtonStyleTest, aButtonInItsResultIsPlain) {
  const PrimitiveButtonStyle wrapping = [](const ButtonConfiguration& configuration) -> View {
    return HStack{.children = {configuration.label, Button{.title = "go", .action = configuration.trigger}}};
  };
  const Stage stage{noting("a").environment<ButtonStyleKey>(wrapping)};
  EXPECT_EQ(stage.dump(), "HStack centred, spacing 8\n  Text \"a\"\n  Button \"go\"\n");
  stage.first<kit::Button>().click();
  EXPECT_EQ(notes, Lines{"a"});
}

TEST_F(ButtonStyleTest, theTriggerOutlivesItsButton) {
  Stage stage{noting("a").environment<ButtonStyleKey>(keeping())};
  stage.show(EmptyView{});
  stage.perform([this] { given.front().trigger(); });
  EXPECT_EQ(notes, Lines{"a"});
}

TEST_F(ButtonStyleTest, withoutAStyleAButtonShowsTheTextOfItsLabel) {
  const Stage stage{VStack{.children = {Button{.label = Text{"text"}}, Button{.label = EmptyView{}}}}};
  EXPECT_EQ(stage.dump(), "VStack centred, spacing 2\n  Button \"text\"\n");
}

}  // namespace
}  // namespace tarnwell::view
