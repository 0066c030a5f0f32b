#include "kit/controls/buttons/Toggle.h"

#include <gtest/gtest.h>

#include "kit/ShownControl.h"

namespace tarnwell::kit {
namespace {

TEST(ToggleTest, settingItTellsThePeerOnceAndSendsNothing) {
  ShownControl<Toggle> toggle;
  std::vector<bool> sent;
  toggle->setAction([&sent](bool on) { sent.push_back(on); });
  toggle->setOn(true);
  toggle->setOn(true);
  EXPECT_EQ(toggle.told(), Lines{"switch: value"});
  EXPECT_EQ(sent, std::vector<bool>{});
}

TEST(ToggleTest, everyPressTurnsItAndSendsWhereItStands) {
  ShownControl<Toggle> toggle;
  std::vector<bool> sent;
  toggle->setAction([&sent](bool on) { sent.push_back(on); });
  toggle->press();
  toggle->press();
  EXPECT_EQ(sent, (std::vector<bool>{true, false}));
  EXPECT_EQ(toggle.told(), (Lines{"switch: value", "switch: value"}));
}

TEST(ToggleTest, choosingWhereItStandsIsNoAction) {
  ShownControl<Toggle> toggle;
  std::vector<bool> sent;
  toggle->setAction([&sent](bool on) { sent.push_back(on); });
  for (const bool on : {false, true, true, false}) {
    toggle->choose(on);
  }
  EXPECT_EQ(sent, (std::vector<bool>{true, false}));
}

TEST(ToggleTest, aCheckBoxIsCalledWhatStandsBesideIt) {
  ShownControl<Toggle> box;
  const unsigned sizeBefore = box->sizeRevision();
  box->setStyle(Toggle::Style::checkBox);
  box->setTitle("Download");
  EXPECT_EQ(box->accessible().name, "Download");
  EXPECT_NE(box->sizeRevision(), sizeBefore);
  EXPECT_EQ(box.told(), (Lines{"switch: style", "switch: title"}));
}

TEST(ToggleTest, aDisabledOneIgnoresPresses) {
  ShownControl<Toggle> toggle;
  toggle->setAction([](bool) { FAIL() << "a disabled switch sent its action"; });
  toggle->setEnabled(false);
  toggle->press();
  toggle->choose(true);
  EXPECT_FALSE(toggle->isOn());
}

}  // namespace
}  // namespace tarnwell::kit
