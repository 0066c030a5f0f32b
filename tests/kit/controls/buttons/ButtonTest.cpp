#include "kit/controls/buttons/Button.h"

#include <gtest/gtest.h>

#include "kit/ShownControl.h"

namespace tarnwell::kit {
namespace {

TEST(ButtonTest, aSetterTellsThePeerOnceAndSendsNothing) {
  ShownControl<Button> button;
  int clicks = 0;
  button->setAction([&clicks] { ++clicks; });
  for (int i = 0; i < 2; ++i) {
    button->setTitle("Save");
    button->setBezelStyle(Button::BezelStyle::help);
    button->setRole(Button::Role::destructive);
    button->setDefault(true);
  }
  EXPECT_EQ(button.told(), (Lines{"button: title", "button: style", "button: style", "button: style"}));
  EXPECT_EQ(clicks, 0);
}

TEST(ButtonTest, everyClickSendsTheAction) {
  Button button;
  int clicks = 0;
  button.setAction([&clicks] { ++clicks; });
  button.click();
  button.click();
  EXPECT_EQ(clicks, 2);
}

TEST(ButtonTest, aDisabledOneIgnoresClicks) {
  Button button;
  int clicks = 0;
  button.setAction([&clicks] { ++clicks; });
  button.setEnabled(false);
  button.click();
  EXPECT_EQ(clicks, 0);
}

TEST(ButtonTest, oneWithoutAnActionCanBeClicked) { Button().click(); }

TEST(ButtonTest, theActionMayReplaceItself) {
  Button button;
  int second = 0;
  button.setAction([&] { button.setAction([&second] { ++second; }); });
  button.click();
  button.click();
  EXPECT_EQ(second, 1);
}

}  // namespace
}  // namespace tarnwell::kit
