#include <gtest/gtest.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>

#include "fixtures/WaitFor.h"
#include "host/qt/Controls.h"
#include "host/qt/Stage.h"
#include "host/qt/WidgetDriver.h"

namespace tarnwell::host_qt {
namespace {

constexpr kit::Rect place = {.x = 20, .y = 20, .width = 120, .height = 24};
constexpr kit::Rect stepperPlace = {.x = 20, .y = 20, .width = 16, .height = 22};
constexpr kit::Point upperHalf = {.x = 8, .y = 5};
constexpr kit::Point lowerHalf = {.x = 8, .y = 16};

TEST(ButtonTest, clickRunsTheActionOnce) {
  Stage stage;
  int runs = 0;
  const auto& button = stage.add(makeButton("Save", [&runs] { ++runs; }), place);
  stage.show();
  driver::click(button);
  EXPECT_EQ(runs, 1);
}

TEST(ButtonTest, lettingGoElsewhereIsNoClick) {
  Stage stage;
  int runs = 0;
  const auto& button = stage.add(makeButton("Save", [&runs] { ++runs; }), place);
  stage.show();
  driver::press(button, {.x = 10, .y = 10});
  driver::moveTo(button, {.x = 200, .y = 100});
  driver::release(button, {.x = 200, .y = 100});
  EXPECT_EQ(runs, 0);
}

TEST(ButtonTest, spacePressesTheFocusedOne) {
  Stage stage;
  int runs = 0;
  const auto& button = stage.add(makeButton("Save", [&runs] { ++runs; }), place);
  stage.show();
  driver::keyAt(button, Qt::Key_Space);
  EXPECT_EQ(runs, 1);
}

TEST(ButtonTest, everyKindLooksDifferent) {
  Stage stage;
  auto& button = stage.add(makeButton("Save"), place);
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
  const auto& toggle = stage.add(makeToggle(), place);
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

TEST(PopUpButtonTest, choosesFromItsMenu) {
  Stage stage;
  std::vector<int> chosen;
  const auto& button = stage.add(makePopUpButton([&chosen](int index) { chosen.push_back(index); }), place);
  stage.show();
  driver::choose(button, 2);
  EXPECT_EQ(button.selectedIndex(), 2);
  EXPECT_EQ(chosen, std::vector{2});
}

TEST(PopUpButtonTest, choosesWithTheKeyboard) {
  Stage stage;
  const auto& button = stage.add(makePopUpButton(), place);
  stage.show();
  driver::keyAt(button, Qt::Key_Space);
  QWidget* menu = QApplication::activePopupWidget();
  ASSERT_NE(menu, nullptr);
  driver::keyTo(*menu, Qt::Key_Down);
  driver::keyTo(*menu, Qt::Key_Return);
  EXPECT_EQ(button.selectedIndex(), 1);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST(PopUpButtonTest, escapeClosesTheMenuAndChoosesNothing) {
  Stage stage;
  const auto& button = stage.add(makePopUpButton(), place);
  stage.show();
  driver::keyAt(button, Qt::Key_Down);
  QWidget* menu = QApplication::activePopupWidget();
  ASSERT_NE(menu, nullptr);
  driver::keyTo(*menu, Qt::Key_Down);
  driver::keyTo(*menu, Qt::Key_Escape);
  EXPECT_EQ(button.selectedIndex(), 0);
}

TEST(PopUpButtonTest, firstLettersChoose) {
  Stage stage;
  const auto& button = stage.add(makePopUpButton(), place);
  stage.show();
  driver::keyAt(button, Qt::Key_S);
  EXPECT_EQ(button.selectedIndex(), 1);
  driver::keyAt(button, Qt::Key_S);
  EXPECT_EQ(button.selectedIndex(), 2);
  driver::keyAt(button, Qt::Key_G);
  EXPECT_EQ(button.selectedIndex(), 0);
}

TEST(PopUpButtonTest, menuMarksWhatIsChosen) {
  Stage stage;
  auto& button = stage.add(makePopUpButton(), place);
  button.setSelectedIndex(1);
  stage.show();
  driver::click(button);
  const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(menu->actions().at(1)->isChecked(), true);
  EXPECT_EQ(menu->activeAction(), menu->actions().at(1));
}

constexpr kit::Rect barPlace = {.x = 0, .y = 0, .width = 400, .height = 60};

TEST(TabBarTest, pressChoosesTheTabBelowIt) {
  Stage stage;
  std::vector<int> chosen;
  auto& bar = stage.add(makeTabBar([&chosen](int index) { chosen.push_back(index); }), barPlace);
  stage.show();
  const kit::Rect general = bar.rectOfTab(1);
  driver::clickAt(bar, {.x = general.x + general.width / 2, .y = general.y + general.height / 2});
  driver::clickAt(bar, {.x = 5, .y = 30});
  EXPECT_EQ(chosen, std::vector{1});
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
