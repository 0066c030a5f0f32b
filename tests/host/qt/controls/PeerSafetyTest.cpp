#include <gtest/gtest.h>

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include "host/qt/Stage.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/controls/Controls.h"

// A control may be ended by its own action, while its widget is still inside the event that asked for it.
namespace tarnwell::host_qt {
namespace {

TEST(PeerSafetyTest, buttonMayEndItselfWhenClicked) {
  Stage stage;
  const auto& button = stage.add(makeButton("End", [&stage] { stage.clear(); }), usualPlace);
  stage.show();
  const QPointer<QWidget> widget = &driver::widget(button);
  driver::click(button);
  driver::settle();
  EXPECT_TRUE(widget.isNull());
}

TEST(PeerSafetyTest, buttonMayEndItselfWithTheSpaceBar) {
  Stage stage;
  const auto& button = stage.add(makeButton("End", [&stage] { stage.clear(); }), usualPlace);
  stage.show();
  const QPointer<QWidget> widget = &driver::widget(button);
  driver::keyAt(button, Qt::Key_Space);
  driver::settle();
  EXPECT_TRUE(widget.isNull());
}

TEST(PeerSafetyTest, toggleMayEndItself) {
  Stage stage;
  const auto& toggle = stage.add(makeToggle([&stage](bool) { stage.clear(); }), usualPlace);
  stage.show();
  const QPointer<QWidget> widget = &driver::widget(toggle);
  driver::click(toggle);
  driver::settle();
  EXPECT_TRUE(widget.isNull());
}

TEST(PeerSafetyTest, sliderMayEndItselfInTheMiddleOfADrag) {
  Stage stage;
  const auto& slider = stage.add(makeSlider(0,
                                            [&stage](kit::Slider& moved) {
                                              if (moved.doubleValue() > 0.5) {
                                                stage.clear();
                                              }
                                            }),
                                 usualPlace);
  stage.show();
  const QPointer<QWidget> widget = &driver::widget(slider);
  driver::press(slider, {.x = 5, .y = 12});
  driver::moveTo(slider, {.x = 100, .y = 12});
  driver::releaseAnywhere(stage.window());
  driver::settle();
  EXPECT_TRUE(widget.isNull());
}

TEST(PeerSafetyTest, stepperMayEndItselfWhileItIsHeld) {
  Stage stage;
  const auto& stepper = stage.add(makeStepper([&stage](double) { stage.clear(); }), usualPlace);
  stage.show();
  const QPointer<QWidget> widget = &driver::widget(stepper);
  driver::press(stepper, {.x = 8, .y = 4});
  driver::settle();
  EXPECT_TRUE(widget.isNull());
}

TEST(PeerSafetyTest, popUpButtonMayEndItselfFromItsMenu) {
  Stage stage;
  const auto& button = stage.add(makePopUpButton([&stage](int) { stage.clear(); }), usualPlace);
  stage.show();
  const QPointer<QWidget> widget = &driver::widget(button);
  driver::choose(button, 1);
  driver::settle();
  EXPECT_TRUE(widget.isNull());
}

TEST(PeerSafetyTest, fieldMayEndItselfWhenItCommits) {
  Stage stage;
  const auto& field = stage.add(makeField("1", [&stage](const std::string&) { stage.clear(); }), usualPlace);
  stage.show();
  const QPointer<QWidget> widget = &driver::widget(field);
  driver::type(field, "2");
  driver::key(stage.window(), Qt::Key_Return);
  driver::settle();
  EXPECT_TRUE(widget.isNull());
}

TEST(PeerSafetyTest, pressedControlMayGoBeforeThePressIsDelivered) {
  Stage stage;
  const auto& field = stage.add(makeField("1", [&stage](const std::string&) { stage.clear(); }), usualPlace);
  int pressed = 0;
  const auto& button =
      stage.add(makeButton("Save", [&pressed] { ++pressed; }), {.x = 20, .y = 80, .width = 80, .height = 24});
  stage.show();
  driver::type(field, "2");
  driver::click(button);
  driver::settle();
  EXPECT_EQ(pressed, 0);
}

TEST(PeerSafetyTest, tabBarMayGoBeforeTheKeyThatChoosesATabIsDelivered) {
  Stage stage;
  int chosen = 0;
  stage.add(makeTabBar([&chosen](int) { ++chosen; }), {.width = 400, .height = 60});
  const auto& field = stage.add(makeField("1",
                                          [&stage](const std::string&) {
                                            stage.clear();
                                            stage.endWindow();
                                          }),
                                {.x = 20, .y = 120, .width = 120, .height = 24});
  stage.show();
  const QPointer<QWidget> window = &driver::widget(stage.window());
  driver::type(field, "2");
  driver::key(stage.window(), Qt::Key_PageDown, Qt::ControlModifier);
  driver::settle();
  EXPECT_EQ(chosen, 0);
  EXPECT_TRUE(window.isNull());
}

TEST(PeerSafetyTest, windowMayEndItselfWhenItIsClosed) {
  Stage stage;
  stage.add(makeButton("Save"), usualPlace);
  stage.show();
  const QPointer<QWidget> widget = &driver::widget(stage.window());
  stage.window().setCloseAction([&stage] {
    stage.clear();
    stage.endWindow();
  });
  widget->close();
  driver::settle();
  EXPECT_TRUE(widget.isNull());
}

TEST(PeerSafetyTest, windowMayEndItselfByAKey) {
  Stage stage;
  stage.show();
  const QPointer<QWidget> widget = &driver::widget(stage.window());
  testHost().setKeyEquivalents([&stage](const kit::KeyEvent& event) {
    if (event.charactersIgnoringModifiers != "w") {
      return false;
    }
    stage.endWindow();
    return true;
  });
  driver::key(stage.window(), Qt::Key_W, Qt::ControlModifier);
  testHost().setKeyEquivalents({});
  driver::settle();
  EXPECT_TRUE(widget.isNull());
}

TEST(PeerSafetyTest, controlsMayOutliveTheirWindow) {
  Stage stage;
  auto& field = stage.add(makeField("1"), usualPlace);
  stage.show();
  stage.endWindow();
  driver::settle();
  field.setText("2");
  field.setFrame({.x = 1, .y = 1, .width = 50, .height = 22});
  EXPECT_EQ(field.text(), "2");
}

}  // namespace
}  // namespace tarnwell::host_qt
