#include "host/qt/Theme.h"

#include <gtest/gtest.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

#include "host/qt/Controls.h"
#include "host/qt/Stage.h"
#include "host/qt/WidgetDriver.h"

namespace tarnwell::host_qt {

// NOLINTNEXTLINE(readability-identifier-naming): the name that the test library looks for.
static void PrintTo(ColorScheme scheme, std::ostream* out) { *out << (scheme == ColorScheme::dark ? "dark" : "light"); }

namespace {

/// Leaves the theme as the other tests expect it.
class ThemeTest : public testing::Test {
 protected:
  ~ThemeTest() override {
    theme.setColorScheme(std::nullopt);
    theme.setAccent(std::nullopt);
    driver::settle();
  }

  Theme& theme = testHost().theme();
};

class PaletteTest : public testing::TestWithParam<ColorScheme> {};

TEST_P(PaletteTest, textsCanBeRead) {
  const Palette palette = Palette::of(GetParam());
  for (const QColor& ground : {palette.window, palette.groupFill, palette.menuFace}) {
    EXPECT_GE(contrast(palette.primaryText, ground), 4.5);
    EXPECT_GE(contrast(palette.secondaryText, ground), 4.5);
  }
  for (const QColor& ground : {palette.controlFace, palette.controlFacePressed, palette.fieldFace}) {
    EXPECT_GE(contrast(palette.primaryText, ground), 4.5);
  }
  EXPECT_GE(contrast(palette.accentText, palette.accent), 4.4);
  EXPECT_GE(contrast(palette.destructive, palette.controlFace), 3.5);
}

TEST_P(PaletteTest, textOnAnyAccentCanBeRead) {
  for (const QColor& accent : {QColor(Qt::yellow), QColor(0x3584e4), QColor(0xed5b00), QColor(Qt::darkGreen)}) {
    const Palette palette = Palette::of(GetParam()).withAccent(accent);
    EXPECT_GE(contrast(palette.accentText, palette.accent), 3);
  }
}

TEST_P(PaletteTest, toolkitSeesTheSameScheme) {
  EXPECT_EQ(schemeOf(Palette::of(GetParam()).toolkitPalette()), GetParam());
}

INSTANTIATE_TEST_SUITE_P(schemes, PaletteTest, testing::Values(ColorScheme::light, ColorScheme::dark));

TEST_F(ThemeTest, withoutAPreferenceTheDesktopsOwnColoursDecide) {
  EXPECT_EQ(theme.colorScheme(), ColorScheme::light);
  theme.setColorScheme(ColorScheme::dark);
  EXPECT_EQ(theme.colorScheme(), ColorScheme::dark);
  theme.setColorScheme(std::nullopt);
  EXPECT_EQ(theme.colorScheme(), ColorScheme::light);
}

TEST_F(ThemeTest, darkPaintsEverythingAnewAndTouchesNothingElse) {
  Stage stage;
  auto& field = stage.add(makeField("0.5"), {.x = 20, .y = 20, .width = 60, .height = 22});
  stage.show();
  driver::type(field, "0.7");
  QWidget& window = driver::widget(stage.window());
  const QImage light = window.grab().toImage();
  theme.setColorScheme(ColorScheme::dark);
  driver::settle();
  const QImage dark = window.grab().toImage();
  EXPECT_EQ(dark.pixelColor(200, 200), Palette::dark().window);
  EXPECT_EQ(light.pixelColor(200, 200), Palette::light().window);
  EXPECT_EQ(dark.pixelColor(70, 30), Palette::dark().fieldFace);
  EXPECT_EQ(field.shownText(), "0.7");
  EXPECT_TRUE(field.isEditing());
}

TEST_F(ThemeTest, accentColoursTheDefaultButton) {
  Stage stage;
  auto& button = stage.add(makeButton("Save"), {.x = 20, .y = 20, .width = 80, .height = 24});
  button.setDefault(true);
  stage.show();
  theme.setAccent(QColor(0x2f8f3a));
  EXPECT_EQ(driver::widget(button).grab().toImage().pixelColor(8, 12), QColor(0x2f8f3a));
}

TEST_F(ThemeTest, fontOfTheDesktopChangesTheMeasures) {
  const QFont before = QApplication::font();
  int told = 0;
  testHost().setMetricsChanged([&told] { ++told; });
  const double narrow = testHost().measureText("Reset to Defaults", kit::FontRole::body, {}).size.width;
  QFont larger = before;
  larger.setPixelSize(15);
  QApplication::setFont(larger);
  driver::settle();
  EXPECT_GT(testHost().measureText("Reset to Defaults", kit::FontRole::body, {}).size.width, narrow);
  EXPECT_GE(told, 1);
  testHost().setMetricsChanged({});
  QApplication::setFont(before);
  driver::settle();
}

}  // namespace
}  // namespace tarnwell::host_qt
