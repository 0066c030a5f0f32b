#include <gtest/gtest.h>

#include <QtCore/QAbstractEventDispatcher>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <algorithm>
#include <functional>
#include <utility>

#include "fixtures/WaitFor.h"
#include "host/painted/TabGeometry.h"
#include "host/qt/Stage.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/controls/Controls.h"
#include "kit/controls/containers/ScrollArea.h"
#include "kit/controls/ranges/ProgressBar.h"

namespace tarnwell::host_qt {
namespace {

constexpr kit::Rect stepperPlace = {.x = 20, .y = 20, .width = 16, .height = 22};
constexpr kit::Point upperHalf = {.x = 8, .y = 5};
constexpr kit::Point lowerHalf = {.x = 8, .y = 16};

TEST(ButtonTest, clickRunsTheActionOnce) {
  Stage stage;
  int runs = 0;
  const auto& button = stage.add(makeButton("Save", [&runs] { ++runs; }), usualPlace);
  stage.show();
  driver::click(button);
  EXPECT_EQ(runs, 1);
}

TEST(ButtonTest, lettingGoElsewhereIsNoClick) {
  Stage stage;
  int runs = 0;
  const auto& button = stage.add(makeButton("Save", [&runs] { ++runs; }), usualPlace);
  stage.show();
  driver::press(button, {.x = 10, .y = 10});
  driver::moveTo(button, {.x = 200, .y = 100});
  driver::release(button, {.x = 200, .y = 100});
  EXPECT_EQ(runs, 0);
}

TEST(ButtonTest, spacePressesTheFocusedOne) {
  Stage stage;
  int runs = 0;
  const auto& button = stage.add(makeButton("Save", [&runs] { ++runs; }), usualPlace);
  stage.show();
  driver::keyAt(button, Qt::Key_Space);
  EXPECT_EQ(runs, 1);
}

TEST(ButtonTest, everyKindLooksDifferent) {
  Stage stage;
  auto& button = stage.add(makeButton("Save"), usualPlace);
  stage.show();
  QWidget& widget = driver::widget(button);
  const QImage plain = widget.grab().toImage();
  button.setDefault(true);
  const QImage asDefault = widget.grab().toImage();
  EXPECT_NE(asDefault, plain);
  button.setEnabled(false);
  EXPECT_NE(widget.grab().toImage(), asDefault);
  button.setEnabled(true);
  button.setDefault(false);
  button.setRole(kit::Button::Role::destructive);
  EXPECT_NE(widget.grab().toImage(), plain);
  button.setRole(kit::Button::Role::none);
  EXPECT_EQ(widget.grab().toImage(), plain);
  button.setBezelStyle(kit::Button::BezelStyle::help);
  EXPECT_NE(widget.grab().toImage(), plain);
}

TEST(ToggleTest, clickAndSpaceTurnIt) {
  Stage stage;
  const auto& toggle = stage.add(makeToggle(), usualPlace);
  stage.show();
  driver::click(toggle);
  EXPECT_TRUE(toggle.isOn());
  driver::keyAt(toggle, Qt::Key_Space);
  EXPECT_FALSE(toggle.isOn());
}

TEST(StepperTest, itsHalvesStepUpAndDown) {
  Stage stage;
  const auto& stepper = stage.add(makeStepper(), stepperPlace);
  stage.show();
  driver::clickAt(stepper, upperHalf);
  driver::clickAt(stepper, upperHalf);
  driver::clickAt(stepper, lowerHalf);
  EXPECT_EQ(stepper.value(), 1);
}

TEST(StepperTest, goesFasterTheLongerItIsHeld) {
  Stage stage;
  const auto& stepper = stage.add(makeStepper(), stepperPlace);
  stage.show();
  driver::press(stepper, upperHalf);
  QWidget& widget = driver::widget(stepper);
  std::vector<int> intervals;
  for (int steps = 1; steps <= 60; ++steps) {
    EXPECT_EQ(stepper.value(), steps);
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(&widget);
    ASSERT_EQ(timers.size(), 1);
    intervals.push_back(timers.first().interval);
    QTimerEvent due(timers.first().timerId);
    QApplication::sendEvent(&widget, &due);
  }
  EXPECT_TRUE(std::ranges::is_sorted(intervals, std::greater()));
  EXPECT_EQ(intervals.front(), kit::Stepper::repeatDelay(1));
  EXPECT_EQ(intervals.back(), kit::Stepper::repeatDelay(60));
  driver::release(stepper, upperHalf);
  EXPECT_TRUE(QAbstractEventDispatcher::instance()->registeredTimers(&widget).isEmpty());
  driver::press(stepper, upperHalf);
  EXPECT_EQ(QAbstractEventDispatcher::instance()->registeredTimers(&widget).first().interval,
            kit::Stepper::repeatDelay(1));
}

TEST(StepperTest, arrowKeysStep) {
  Stage stage;
  const auto& stepper = stage.add(makeStepper(), stepperPlace);
  stage.show();
  driver::keyAt(stepper, Qt::Key_Up);
  driver::keyAt(stepper, Qt::Key_Up);
  driver::keyAt(stepper, Qt::Key_Down);
  EXPECT_EQ(stepper.value(), 1);
}

TEST(StepperTest, stepsOnWhileItIsHeldAndStopsThen) {
  Stage stage;
  const auto& stepper = stage.add(makeStepper(), stepperPlace);
  stage.show();
  driver::press(stepper, upperHalf);
  EXPECT_TRUE(fixtures::waitFor([&stepper] {
    QApplication::processEvents();
    return stepper.value() >= 4;
  }));
  driver::release(stepper, upperHalf);
  const double reached = stepper.value();
  driver::clickAt(stepper, lowerHalf);
  EXPECT_EQ(stepper.value(), reached - 1);
}

constexpr kit::Rect barPlace = {.x = 0, .y = 0, .width = 400, .height = 60};

TEST(TabBarTest, pressChoosesTheTabBelowIt) {
  Stage stage;
  std::vector<int> chosen;
  auto& bar = stage.add(makeTabBar([&chosen](int index) { chosen.push_back(index); }), barPlace);
  stage.show();
  const kit::Rect general = host_painted::rectOfTab(bar, 1);
  driver::clickAt(bar, {.x = general.x + general.width / 2, .y = general.y + general.height / 2});
  driver::clickAt(bar, {.x = 5, .y = 30});
  EXPECT_EQ(chosen, std::vector{1});
}

TEST(TabBarTest, controlWithTabOrAPageKeyChoosesTheNextFromAnywhere) {
  Stage stage;
  auto& bar = stage.add(makeTabBar(), barPlace);
  auto& slider = stage.add(makeSlider(0.5), {.x = 20, .y = 80, .width = 120, .height = 24});
  auto& field = stage.add(makeField("1"), {.x = 20, .y = 120, .width = 120, .height = 24});
  stage.show();
  const std::vector<std::pair<Qt::Key, Qt::KeyboardModifiers>> keys = {
      {Qt::Key_Tab, Qt::ControlModifier},
      {Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier},
      {Qt::Key_PageDown, Qt::ControlModifier},
      {Qt::Key_PageUp, Qt::ControlModifier},
      {Qt::Key_PageDown, Qt::ControlModifier | Qt::KeypadModifier},
      {Qt::Key_PageUp, Qt::ControlModifier | Qt::KeypadModifier}};
  for (const kit::Control* from : std::vector<const kit::Control*>{&bar, &slider, &field}) {
    for (const auto& [key, modifiers] : keys) {
      const int before = bar.selectedIndex();
      driver::widget(*from).setFocus(Qt::TabFocusReason);
      driver::key(stage.window(), key, modifiers);
      EXPECT_EQ(bar.selectedIndex(), 1 - before) << key;
      EXPECT_TRUE(driver::widget(bar).hasFocus());
    }
  }
  EXPECT_EQ(slider.doubleValue(), 0.5);
  driver::key(stage.window(), Qt::Key_PageDown);
  driver::key(stage.window(), Qt::Key_PageDown, Qt::ControlModifier | Qt::AltModifier);
  EXPECT_EQ(bar.selectedIndex(), 0);
}

TEST(TabBarTest, anotherTabCommitsWhatIsBeingTyped) {
  Stage stage;
  std::string committed;
  stage.add(makeTabBar(), barPlace);
  auto& field = stage.add(makeField("1", [&committed](const std::string& text) { committed = text; }),
                          {.x = 20, .y = 120, .width = 120, .height = 24});
  stage.show();
  driver::type(field, "7");
  driver::key(stage.window(), Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(committed, "7");
}

constexpr kit::Rect switchPlace = {.x = 200, .y = 20, .width = 38, .height = 22};
constexpr kit::Rect labelPlace = {.x = 20, .y = 20, .width = 100, .height = 22};

TEST(ToggleTest, clickOnTheTitleOfACheckBoxTurnsIt) {
  Stage stage;
  auto& box = stage.add(makeToggle(), usualPlace);
  box.setStyle(kit::Toggle::Style::checkBox);
  box.setTitle("Download");
  stage.show();
  const QImage off = driver::widget(box).grab().toImage();
  driver::clickAt(box, {.x = 40, .y = box.bounds().height / 2});
  EXPECT_TRUE(box.isOn());
  EXPECT_NE(driver::widget(box).grab().toImage(), off);
}

TEST(ProgressBarTest, itFillsAsFarAsItSays) {
  Stage stage;
  auto& bar = stage.add(std::make_unique<kit::ProgressBar>(), {.x = 20, .y = 20, .width = 200, .height = 6});
  stage.show();
  const auto at = [&bar](int x) { return driver::widget(bar).grab().toImage().pixelColor(x, 3); };
  bar.setShare(0.5);
  EXPECT_EQ(at(50), testHost().theme().palette().accent);
  EXPECT_NE(at(150), testHost().theme().palette().accent);
  bar.setShare(1);
  EXPECT_EQ(at(150), testHost().theme().palette().accent);
}

TEST(ProgressBarTest, somethingMovesWhileTheShareIsUnknown) {
  Stage stage;
  const auto& bar = stage.add(std::make_unique<kit::ProgressBar>(), {.x = 20, .y = 20, .width = 200, .height = 6});
  stage.show();
  QWidget& widget = driver::widget(bar);
  const QImage first = widget.grab().toImage();
  EXPECT_TRUE(fixtures::waitFor([&widget, &first] {
    QApplication::processEvents();
    return widget.grab().toImage() != first;
  }));
}

TEST(ToggleTest, clickOnItsLabelPressesIt) {
  Stage stage;
  int presses = 0;
  auto& toggle = stage.add(makeToggle([&presses](bool) { ++presses; }), switchPlace);
  auto& label = stage.add(makeLabel("Dim"), labelPlace);
  auto& button = stage.add(makeButton("Save"), {.x = 20, .y = 60, .width = 80, .height = 24});
  toggle.setLabelFrame({.x = 20, .y = 10, .width = 180, .height = 80});
  stage.show();
  driver::click(label);
  EXPECT_EQ(presses, 1);
  driver::clickGround(stage.window(), {.x = 150, .y = 30});
  EXPECT_EQ(presses, 2);
  // What is a control of its own, and what lies beside it.
  driver::click(button);
  driver::clickGround(stage.window(), {.x = 150, .y = 120});
  driver::press(label, {.x = 5, .y = 5});
  driver::release(label, {.x = 5, .y = 120});
  EXPECT_EQ(presses, 2);
  toggle.setEnabled(false);
  driver::click(label);
  EXPECT_EQ(presses, 2);
}

TEST(ToggleTest, labelThatIsScrolledOutOfSightIsNotPressed) {
  Stage stage;
  auto& area = stage.add(std::make_unique<kit::ScrollArea>(), {.x = 0, .y = 100, .width = 300, .height = 100});
  area.setContentHeight(400);
  auto& toggle = stage.addTo(area, makeToggle(), switchPlace);
  toggle.setLabelFrame({.x = 20, .y = 0, .width = 180, .height = 60});
  stage.show();
  driver::clickGround(stage.window(), {.x = 50, .y = 110});
  EXPECT_TRUE(toggle.isOn());
  area.scrollTo(50);
  driver::clickGround(stage.window(), {.x = 50, .y = 70});
  driver::clickGround(stage.window(), {.x = 50, .y = 120});
  EXPECT_TRUE(toggle.isOn());
}

TEST(ToggleTest, oneThatGoesWhileItsLabelIsHeldIsNotPressed) {
  Stage stage;
  int presses = 0;
  auto& toggle = stage.add(makeToggle([&presses](bool) { ++presses; }), switchPlace);
  toggle.setLabelFrame(labelPlace);
  stage.show();
  QTest::mousePress(driver::widget(stage.window()).windowHandle(), Qt::LeftButton, {}, QPoint(30, 30));
  stage.clear();
  QTest::mouseRelease(driver::widget(stage.window()).windowHandle(), Qt::LeftButton, {}, QPoint(30, 30));
  EXPECT_EQ(presses, 0);
}

TEST(TabBarTest, arrowKeysChooseTheNeighbour) {
  Stage stage;
  auto& bar = stage.add(makeTabBar(), barPlace);
  stage.show();
  driver::keyAt(bar, Qt::Key_Right);
  EXPECT_EQ(bar.selectedIndex(), 1);
  driver::keyAt(bar, Qt::Key_Right);
  EXPECT_EQ(bar.selectedIndex(), 1);
  driver::keyAt(bar, Qt::Key_Left);
  EXPECT_EQ(bar.selectedIndex(), 0);
}

}  // namespace
}  // namespace tarnwell::host_qt
