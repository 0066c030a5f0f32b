#include "host/qt/look/Theme.h"

#include <gtest/gtest.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <algorithm>
#include <tuple>

#include "host/painted/ControlMetrics.h"
#include "host/painted/NaturalSize.h"
#include "host/painted/TabGeometry.h"
#include "host/qt/Stage.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/controls/Controls.h"

namespace tarnwell::host_qt {

// NOLINTNEXTLINE(readability-identifier-naming): the name that the test library looks for.
static void PrintTo(ColorScheme scheme, std::ostream* out) { *out << (scheme == ColorScheme::dark ? "dark" : "light"); }

// NOLINTNEXTLINE(readability-identifier-naming): as above.
static void PrintTo(ContrastLevel level, std::ostream* out) {
  *out << (level == ContrastLevel::high ? "high" : "normal");
}

namespace {

/// Leaves the theme as the other tests expect it.
class ThemeTest : public testing::Test {
 protected:
  ~ThemeTest() override {
    theme.setColorScheme(std::nullopt);
    theme.setAccent(std::nullopt);
    theme.setContrastLevel(ContrastLevel::normal);
    driver::settle();
  }

  Theme& theme = testHost().theme();
};

/// Every scheme at every level, with our accent colour and with others.
class PaletteTest : public testing::TestWithParam<std::tuple<ColorScheme, ContrastLevel, QRgb>> {
 protected:
  static bool isHigh() { return std::get<1>(GetParam()) == ContrastLevel::high; }

  static Palette palette() {
    const auto [scheme, level, accent] = GetParam();
    const Palette own = Palette::of(scheme, level);
    return accent != 0 ? own.withAccent(QColor(accent)) : own;
  }
};

TEST_P(PaletteTest, textsCanBeRead) {
  const Palette colors = palette();
  const double least = isHigh() ? 7 : 4.5;
  for (const QColor& ground : {colors.window, colors.groupFill, colors.menuFace}) {
    EXPECT_GE(contrast(colors.primaryText, ground), least);
    EXPECT_GE(contrast(colors.secondaryText, ground), least);
  }
  for (const QColor& ground : {colors.controlFace, colors.controlFacePressed, colors.fieldFace}) {
    EXPECT_GE(contrast(colors.primaryText, ground), least);
  }
  EXPECT_GE(contrast(colors.accentText, colors.accent), least);
  EXPECT_GE(contrast(colors.accentText, pressedShade(colors.accent, colors.accentText)), least);
  EXPECT_GE(contrast(colors.destructive, colors.controlFace), least);
  EXPECT_GE(contrast(colors.destructive, colors.controlFacePressed), least);
}

TEST_P(PaletteTest, linksAndTheChosenTabCanBeRead) {
  const Palette colors = palette();
  const double least = isHigh() ? 7 : 4.5;
  const QColor tab = over(colors.window, colors.chosenTab);
  for (const QColor& ground : {colors.window, colors.groupFill, colors.fieldFace, tab}) {
    EXPECT_GE(contrast(colors.accentOnWindow, ground), least);
  }
  const QPalette toolkit = colors.toolkitPalette();
  for (const auto link : {QPalette::Link, QPalette::LinkVisited}) {
    EXPECT_GE(contrast(toolkit.color(link), toolkit.color(QPalette::Window)), least);
    EXPECT_GE(contrast(toolkit.color(link), toolkit.color(QPalette::Base)), least);
  }
}

TEST_P(PaletteTest, controlsStandOutFromWhatTheyStandOn) {
  const Palette colors = palette();
  for (const QColor& ground : {colors.window, colors.groupFill}) {
    EXPECT_GE(contrast(colors.controlBorder, ground), 3);
    EXPECT_GE(contrast(colors.track, ground), 3);
    EXPECT_GE(contrast(colors.tick, ground), 3);
    EXPECT_GE(contrast(colors.focusRing, ground), 3);
    EXPECT_GE(std::max(contrast(colors.knob, ground), contrast(colors.knobBorder, ground)), 3);
  }
  EXPECT_GE(contrast(colors.controlBorder, colors.fieldFace), 3);
  EXPECT_GE(contrast(colors.controlBorder, colors.menuFace), 3);
  EXPECT_GE(contrast(colors.knob, colors.track), 3);
  EXPECT_GE(contrast(colors.knob, pressedShade(colors.track, colors.knob)), 3);
}

TEST_P(PaletteTest, fillsInTheAccentColourStandOutFromWhatTheyStandOn) {
  const Palette colors = palette();
  for (const QColor& ground : {colors.window, colors.groupFill, colors.menuFace}) {
    EXPECT_GE(contrast(colors.accent, ground), 3);
  }
  EXPECT_GE(contrast(colors.accent, colors.fieldFace), 3);
  for (const QColor& fill : {colors.accent, pressedShade(colors.accent, colors.knob)}) {
    EXPECT_GE(std::max(contrast(colors.knob, fill), contrast(colors.knobBorder, fill)), 3);
  }
}

TEST_P(PaletteTest, highContrastDrawsLinesInTheColourOfTexts) {
  const Palette colors = palette();
  EXPECT_EQ(colors.controlBorder == colors.primaryText, isHigh());
  EXPECT_EQ(colors.hairline == colors.primaryText, isHigh());
  EXPECT_EQ(colors.chosenTabBorder == colors.primaryText, isHigh());
}

TEST_P(PaletteTest, toolkitSeesTheSameScheme) {
  EXPECT_EQ(schemeOf(palette().toolkitPalette()), std::get<0>(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(schemes, PaletteTest,
                         testing::Combine(testing::Values(ColorScheme::light, ColorScheme::dark),
                                          testing::Values(ContrastLevel::normal, ContrastLevel::high),
                                          testing::Values(QRgb(0), 0xffffff00, 0xff3584e4, 0xffed5b00, 0xff008000,
                                                          0xff000040, 0xff808080, 0xfff0f0f0)));

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

TEST_F(ThemeTest, filledPartOfASliderStandsOutFromTheEmptyOne) {
  Stage stage;
  auto& slider = stage.add(makeSlider(0.5), {.x = 20, .y = 20, .width = 110, .height = 24});
  stage.show();
  for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
    theme.setColorScheme(scheme);
    for (const ContrastLevel level : {ContrastLevel::normal, ContrastLevel::high}) {
      theme.setContrastLevel(level);
      const QImage picture = driver::widget(slider).grab().toImage();
      EXPECT_GE(contrast(picture.pixelColor(30, 12), picture.pixelColor(80, 12)), 3);
    }
  }
}

TEST_F(ThemeTest, pressedButtonsCanBeRead) {
  Stage stage;
  auto& button = stage.add(makeButton("Save"), {.x = 20, .y = 20, .width = 80, .height = 24});
  button.setDefault(true);
  stage.show();
  theme.setAccent(QColor(0x808080));
  driver::press(button, {.x = 10, .y = 12});
  const QColor face = driver::widget(button).grab().toImage().pixelColor(8, 12);
  driver::release(button, {.x = 10, .y = 12});
  EXPECT_NE(face, theme.palette().accent);
  EXPECT_GE(contrast(theme.palette().accentText, face), 4.5);
}

TEST_F(ThemeTest, highContrastIsPaintedInBothSchemes) {
  Stage stage;
  stage.show();
  QWidget& window = driver::widget(stage.window());
  theme.setContrastLevel(ContrastLevel::high);
  driver::settle();
  EXPECT_EQ(window.grab().toImage().pixelColor(200, 200), QColor(Qt::white));
  theme.setColorScheme(ColorScheme::dark);
  driver::settle();
  EXPECT_EQ(window.grab().toImage().pixelColor(200, 200), QColor(Qt::black));
}

template <class C>
kit::Size naturalSize(const C& control) {
  return host_painted::naturalSize(control, testHost(), {}).size;
}

TEST_F(ThemeTest, largeFontsOfTheDesktopStayLargeAndControlsGrowWithThem) {
  const QFont before = QApplication::font();
  for (const int pixels : {11, 13, 18, 24}) {
    QFont font = before;
    font.setPixelSize(pixels);
    QApplication::setFont(font);
    driver::settle();
    EXPECT_EQ(theme.font(kit::FontRole::body).pixelSize(), std::max(12, pixels));
    const double line = testHost().lineHeight(kit::FontRole::body);
    EXPECT_GT(naturalSize(*makeField("0.5")).height, line);
    EXPECT_GT(naturalSize(*makeButton("Save")).height, line);
    EXPECT_GT(naturalSize(*makePopUpButton()).height, line);
    auto bar = makeTabBar();
    bar->setFrame({.width = 600, .height = naturalSize(*bar).height});
    const kit::Size title = testHost().measureText("General", kit::FontRole::subheadline, {}).size;
    EXPECT_GT(host_painted::rectOfTab(*bar, 1).width, title.width);
    EXPECT_GT(host_painted::rectOfTab(*bar, 1).height, host_painted::metrics::tabTitleTop + title.height);
  }
  QApplication::setFont(before);
  driver::settle();
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
