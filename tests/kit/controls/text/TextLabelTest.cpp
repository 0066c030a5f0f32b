#include "kit/controls/text/TextLabel.h"

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

}  // namespace
}  // namespace tarnwell::kit
