#include "kit/controls/choices/PopUpButton.h"

#include <gtest/gtest.h>

#include "kit/ShownControl.h"

namespace tarnwell::kit {
namespace {

class PopUpButtonTest : public testing::Test {
 protected:
  PopUpButtonTest() {
    button->setItems({{.title = "Genie", .symbol = "wand"}, {.title = "Scale", .symbol = "square"}, {.title = "Suck"}});
    button->setAction([this](int index) { sent.push_back(index); });
    button.told();
  }

  ShownControl<PopUpButton> button;
  std::vector<int> sent = {};
};

TEST_F(PopUpButtonTest, nothingIsChosenAtFirst) { EXPECT_EQ(button->selectedIndex(), -1); }

TEST_F(PopUpButtonTest, settingItTellsThePeerOnceAndSendsNothing) {
  button->setSelectedIndex(1);
  button->setSelectedIndex(1);
  EXPECT_EQ(button.told(), Lines{"pop-up button: value"});
  button->setSelectedIndex(-1);
  EXPECT_EQ(button.told(), Lines{"pop-up button: value"});
  button->setItems({{.title = "Genie"}});
  button->setItems({{.title = "Genie"}});
  EXPECT_EQ(button.told(), Lines{"pop-up button: title"});
  EXPECT_EQ(sent, std::vector<int>{});
}

TEST_F(PopUpButtonTest, choosingSendsTheIndexButNotWhatIsChosenAlready) {
  button->choose(2);
  button->choose(2);
  button->choose(0);
  EXPECT_EQ(sent, (std::vector<int>{2, 0}));
  EXPECT_EQ(button->selectedIndex(), 0);
}

TEST_F(PopUpButtonTest, aDisabledOneIgnoresChoices) {
  button->setEnabled(false);
  button->choose(2);
  EXPECT_EQ(button->selectedIndex(), -1);
  EXPECT_EQ(sent, std::vector<int>{});
}

TEST_F(PopUpButtonTest, aRequestForAnItemThatIsNotThereIsIgnored) {
  for (const int part : {0, -1, 3, 2}) {
    button->carryOut({.action = AccessibleAction::choosePart, .part = part});
  }
  EXPECT_EQ(sent, (std::vector<int>{0, 2}));
}

TEST_F(PopUpButtonTest, fewerItemsNeverLeaveAnIndexBehindTheLast) {
  button->setSelectedIndex(2);
  button->setItems({{.title = "Genie"}});
  EXPECT_EQ(button->selectedIndex(), 0);
  button->setItems({});
  EXPECT_EQ(button->selectedIndex(), -1);
}

using PopUpButtonDeathTest = PopUpButtonTest;

TEST_F(PopUpButtonDeathTest, anIndexThatIsNoItemsIsAFault) {
  const char* message = "tarnwell: a control was told to select an item that it does not have";
  EXPECT_DEATH(button->setSelectedIndex(3), message);
  EXPECT_DEATH(button->setSelectedIndex(-2), message);
  EXPECT_DEATH(button->choose(3), message);
}

}  // namespace
}  // namespace tarnwell::kit
