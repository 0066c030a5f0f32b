#include <gtest/gtest.h>

#include "kit/ShownControl.h"
#include "kit/controls/buttons/Button.h"
#include "kit/controls/buttons/Toggle.h"
#include "kit/controls/choices/PopUpButton.h"
#include "kit/controls/choices/TabBar.h"
#include "kit/controls/ranges/ProgressBar.h"
#include "kit/controls/ranges/Slider.h"
#include "kit/controls/ranges/Stepper.h"
#include "kit/controls/text/SymbolView.h"
#include "kit/controls/text/TextField.h"
#include "kit/controls/text/TextLabel.h"

namespace tarnwell::host_painted {
namespace {

using kit::Measurement;
using kit::ShownControl;
using kit::Size;

TEST(NaturalSizeTest, aButtonIsAsWideAsItsTitleButNeverNarrow) {
  ShownControl<kit::Button> button;
  button->setTitle("OK");
  EXPECT_EQ(button->measure({}).size, (Size{.width = 64, .height = 24}));
  button->setTitle("Reset to Defaults");
  EXPECT_EQ(button->measure({.width = 10}).size, (Size{.width = 17 * 7 + 28, .height = 24}));
  EXPECT_EQ(button->measure({}).firstBaseline, 16.5);
}

TEST(NaturalSizeTest, theHelpButtonIsRoundWhateverItsTitle) {
  ShownControl<kit::Button> button;
  button->setBezelStyle(kit::Button::BezelStyle::help);
  button->setTitle("Help me with this");
  EXPECT_EQ(button->measure({}).size, (Size{.width = 22, .height = 22}));
}

TEST(NaturalSizeTest, aPopUpButtonIsAsWideAsItsWidestItemWhicheverIsChosen) {
  ShownControl<kit::PopUpButton> button;
  button->setItems({{.title = "Genie", .symbol = "wand"}, {.title = "Scale", .symbol = "square"}, {.title = "Suck"}});
  const Measurement measurement = button->measure({.width = 10});
  EXPECT_EQ(measurement.size, (Size{.width = 10 + 5 * 7 + 6 + 16 + 18 + 10, .height = 24}));
  button->setSelectedIndex(2);
  EXPECT_EQ(button->measure({}), measurement);
}

TEST(NaturalSizeTest, aPopUpButtonWithoutItemsHasRoomForItsArrowAlone) {
  const ShownControl<kit::PopUpButton> button;
  EXPECT_EQ(button->measure({}).size, (Size{.width = 10 + 18 + 10, .height = 24}));
}

TEST(NaturalSizeTest, aSliderTakesTheWidthThatItIsOfferedDownToItsLeast) {
  const ShownControl<kit::Slider> slider(0, 0, 1, nullptr);
  EXPECT_EQ(slider->measure({}).size, (Size{.width = 128, .height = 24}));
  EXPECT_EQ(slider->measure({.width = 300}).size.width, 300);
  EXPECT_EQ(slider->measure({.width = 10}).size.width, 60);
}

TEST(NaturalSizeTest, switchesAndSteppersHaveOneSize) {
  EXPECT_EQ(ShownControl<kit::Toggle>()->measure({.width = 500}).size, (Size{.width = 38, .height = 22}));
  EXPECT_EQ(ShownControl<kit::Stepper>()->measure({.width = 500}).size, (Size{.width = 16, .height = 22}));
}

TEST(NaturalSizeTest, aCheckBoxHasRoomForItsTitle) {
  ShownControl<kit::Toggle> box;
  box->setStyle(kit::Toggle::Style::checkBox);
  box->setTitle("0123456789");
  EXPECT_EQ(box->measure({.width = 500}).size, (Size{.width = 15 + 7 + 70, .height = 16}));
}

TEST(NaturalSizeTest, aProgressBarIsAsWideAsOffered) {
  const ShownControl<kit::ProgressBar> bar;
  EXPECT_EQ(bar->measure({}).size, (Size{.width = 160, .height = 6}));
  EXPECT_EQ(bar->measure({.width = 400}).size, (Size{.width = 400, .height = 6}));
}

TEST(NaturalSizeTest, aSymbolIsASquareCentredOnACapitalLetter) {
  ShownControl<kit::SymbolView> icon;
  icon->setSide(96);
  EXPECT_EQ(icon->measure({}).size, (Size{.width = 96, .height = 96}));
  EXPECT_EQ(ShownControl<kit::SymbolView>()->measure({.width = 100}),
            (Measurement{.size = {.width = 18, .height = 18}, .firstBaseline = 13.5}));
}

TEST(NaturalSizeTest, aTabBarTakesTheWidthThatItIsOffered) {
  ShownControl<kit::TabBar> bar;
  bar->setItems({{.title = "Dock"}, {.title = "General"}});
  EXPECT_EQ(bar->measure({}).size, (Size{.width = 2 * 72, .height = 60}));
  EXPECT_EQ(bar->measure({.width = 600}).size, (Size{.width = 600, .height = 60}));
}

TEST(NaturalSizeTest, aFieldIsAsWideAsOffered) {
  const ShownControl<kit::TextField> field;
  EXPECT_EQ(field->measure({}).size, (Size{.width = 80, .height = 22}));
  EXPECT_EQ(field->measure({.width = 50}).size, (Size{.width = 50, .height = 22}));
}

TEST(NaturalSizeTest, aTextIsMeasuredInItsFontAndBrokenWhereItLacksRoom) {
  ShownControl<kit::TextLabel> label;
  label->setText("0123456789");
  EXPECT_EQ(label->measure({}).size, (Size{.width = 70, .height = 16}));
  EXPECT_EQ(label->measure({.width = 35}).size, (Size{.width = 35, .height = 32}));
  label->setStyle({.font = kit::FontRole::caption});
  EXPECT_EQ(label->measure({}), (Measurement{.size = {.width = 50, .height = 12}, .firstBaseline = 9}));
}

}  // namespace
}  // namespace tarnwell::host_painted
