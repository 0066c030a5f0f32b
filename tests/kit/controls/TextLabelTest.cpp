#include "kit/controls/TextLabel.h"

#include <gtest/gtest.h>

#include "kit/ShownControl.h"

namespace tarnwell::kit {
namespace {

TEST(TextLabelTest, aSetterTellsThePeerOnce) {
  ShownControl<TextLabel> label;
  for (int i = 0; i < 2; ++i) {
    label->setText("sec");
    label->setStyle({.font = FontRole::caption, .color = ColorRole::secondary});
  }
  EXPECT_EQ(label.told(), (Lines{"text: title", "text: style"}));
}

TEST(TextLabelTest, itIsMeasuredInItsFontAndBrokenWhereItLacksRoom) {
  ShownControl<TextLabel> label;
  label->setText("0123456789");
  EXPECT_EQ(label->measure(label.host(), {}).size, (Size{.width = 70, .height = 16}));
  EXPECT_EQ(label->measure(label.host(), {.width = 35}).size, (Size{.width = 35, .height = 32}));
  label->setStyle({.font = FontRole::caption});
  EXPECT_EQ(label->measure(label.host(), {}), (Measurement{.size = {.width = 50, .height = 12}, .firstBaseline = 9}));
}

}  // namespace
}  // namespace tarnwell::kit
