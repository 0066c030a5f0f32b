#include <gtest/gtest.h>

#include <QtGui/QAccessible>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFocusFrame>
#include <QtWidgets/QMenuBar>

#include "host/qt/Stage.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/controls/Controls.h"
#include "kit/controls/containers/Box.h"
#include "kit/controls/containers/ScrollArea.h"

namespace tarnwell::host_qt {
namespace {

kit::Rect row(double top) { return {.x = 20, .y = top, .width = 120, .height = 24}; }

// Where Tab leads, from the start until it comes round.
std::vector<QWidget*> tabbedThrough(Stage& stage, std::size_t count) {
  std::vector<QWidget*> visited;
  for (std::size_t i = 0; i < count; ++i) {
    driver::key(stage.window(), Qt::Key_Tab);
    visited.push_back(QApplication::focusWidget());
  }
  return visited;
}

bool ringIsShown(const kit::Window& window) {
  const auto rings = driver::widget(window).findChildren<QFocusFrame*>();
  return rings.size() == 1 && rings.first()->isVisible();
}

TEST(FocusTest, nothingHasTheFocusAtFirst) {
  Stage stage;
  const auto& slider = stage.add(makeSlider(0.5), row(20));
  stage.show();
  driver::key(stage.window(), Qt::Key_Right);
  EXPECT_EQ(slider.doubleValue(), 0.5);
}

TEST(FocusTest, tabReachesEveryControlInTheOrderOfTheTree) {
  Stage stage;
  auto& button = stage.add(makeButton("Save"), row(20));
  auto& slider = stage.add(makeSlider(0.5), row(60));
  auto& label = stage.add(makeLabel("Text"), row(90));
  auto& field = stage.add(makeField("1"), row(120));
  auto& stepper = stage.add(makeStepper(), row(160));
  auto& toggle = stage.add(makeToggle(), row(190));
  auto& popUp = stage.add(makePopUpButton(), row(230));
  stage.reorder({&slider, &label, &field, &stepper, &popUp, &toggle, &button});
  stage.show();
  const std::vector<QWidget*> expected = {&driver::widget(slider), &driver::widget(field),  &driver::widget(stepper),
                                          &driver::widget(popUp),  &driver::widget(toggle), &driver::widget(button)};
  EXPECT_EQ(tabbedThrough(stage, 6), expected);
}

TEST(FocusTest, controlsThatComeLaterStandWhereTheTreeHasThem) {
  Stage stage;
  auto& first = stage.add(makeToggle(), row(20));
  auto& third = stage.add(makeToggle(), row(100));
  stage.show();
  auto& second = stage.add(makeToggle(), row(60));
  stage.reorder({&first, &second, &third});
  const std::vector<QWidget*> expected = {&driver::widget(first), &driver::widget(second), &driver::widget(third)};
  EXPECT_EQ(tabbedThrough(stage, 3), expected);
}

TEST(FocusTest, belowAMenuBarTheFirstControlIsStillTheFirst) {
  testHost().setChromeMaker([](kit::Window&, QWidget& parent) {
    WindowChrome chrome;
    chrome.above = new QMenuBar(&parent);
    return std::optional(chrome);
  });
  Stage stage;
  testHost().setChromeMaker({});
  auto& second = stage.add(makeToggle(), row(60));
  auto& first = stage.add(makeToggle(), row(20));
  stage.reorder({&first, &second});
  stage.show();
  const std::vector<QWidget*> expected = {&driver::widget(first), &driver::widget(second)};
  EXPECT_EQ(tabbedThrough(stage, 2), expected);
}

TEST(FocusTest, disabledControlIsPassedOver) {
  Stage stage;
  stage.add(makeToggle(), row(20)).setEnabled(false);
  auto& second = stage.add(makeToggle(), row(60));
  stage.show();
  EXPECT_EQ(tabbedThrough(stage, 1), std::vector<QWidget*>{&driver::widget(second)});
}

TEST(FocusTest, screenReadersAreToldTheOrderOfTheTree) {
  Stage stage;
  auto& late = stage.add(makeButton("Late"), row(60));
  auto& ground = stage.add(std::make_unique<kit::Box>(kit::Box::Kind::group), row(20));
  auto& early = stage.add(makeLabel("Early"), row(20));
  stage.reorder({&ground, &early, &late});
  stage.show();
  QAccessibleInterface* window = QAccessible::queryAccessibleInterface(&driver::widget(stage.window()));
  ASSERT_EQ(window->childCount(), 2);
  EXPECT_EQ(window->child(0)->text(QAccessible::Name), "Early");
  EXPECT_EQ(window->child(1)->text(QAccessible::Name), "Late");
}

TEST(FocusTest, ringShowsWhereTheKeyboardWent) {
  Stage stage;
  stage.add(makeToggle(), row(20));
  stage.show();
  EXPECT_FALSE(ringIsShown(stage.window()));
  driver::key(stage.window(), Qt::Key_Tab);
  EXPECT_TRUE(ringIsShown(stage.window()));
}

TEST(FocusTest, ringStaysAwayFromWhatTheMousePressed) {
  Stage stage;
  const auto& toggle = stage.add(makeToggle(), row(20));
  stage.show();
  driver::click(toggle);
  EXPECT_TRUE(driver::widget(toggle).hasFocus());
  EXPECT_FALSE(ringIsShown(stage.window()));
}

TEST(FocusTest, ringGoesWithItsControl) {
  Stage stage;
  stage.add(makeToggle(), row(20));
  stage.show();
  driver::key(stage.window(), Qt::Key_Tab);
  stage.clear();
  driver::settle();
  EXPECT_FALSE(ringIsShown(stage.window()));
}

TEST(FocusTest, ringFollowsTheKnob) {
  Stage stage;
  auto& slider = stage.add(makeSlider(0), row(20));
  stage.show();
  driver::key(stage.window(), Qt::Key_Tab);
  const auto* ring = driver::widget(stage.window()).findChild<QFocusFrame*>();
  const int before = ring->x();
  slider.setDoubleValue(1);
  EXPECT_EQ(ring->x() - before, 110);
}

TEST(FocusTest, clickedButtonThatDisablesItselfLeavesNoFocus) {
  Stage stage;
  kit::Button* self = nullptr;
  auto& save = stage.add(makeButton("Save", [&self] { self->setEnabled(false); }), row(20));
  self = &save;
  stage.add(makeButton("Reset"), row(60));
  stage.show();
  driver::click(save);
  EXPECT_EQ(QApplication::focusWidget(), &driver::widget(stage.window()));
}

/// Ten switches in a page that shows six of them.
class PageTest : public testing::Test {
 protected:
  PageTest() {
    area.setContentHeight(500);
    for (int i = 0; i < 10; ++i) {
      toggles.push_back(&stage.addTo(area, makeToggle(), row(10 + 50 * i)));
    }
    stage.show();
  }

  Stage stage;
  kit::ScrollArea& area = stage.add(std::make_unique<kit::ScrollArea>(), {.x = 0, .y = 0, .width = 400, .height = 300});
  std::vector<kit::Toggle*> toggles;
};

TEST_F(PageTest, focusedControlIsScrolledIntoView) {
  tabbedThrough(stage, 10);
  EXPECT_EQ(area.offset(), 196);
  EXPECT_FALSE(driver::widget(*toggles.back()).visibleRegion().isEmpty());
}

TEST_F(PageTest, pressingWithTheMouseScrollsNothing) {
  driver::clickAt(*toggles[5], {.x = 10, .y = 10});
  EXPECT_TRUE(toggles[5]->isOn());
  EXPECT_EQ(area.offset(), 0);
}

TEST_F(PageTest, pageKeysScrollWhenNothingHasTheFocus) {
  driver::key(stage.window(), Qt::Key_PageDown);
  EXPECT_EQ(area.offset(), 200);
  driver::key(stage.window(), Qt::Key_Home);
  EXPECT_EQ(area.offset(), 0);
}

TEST_F(PageTest, wheelOverAControlScrollsThePageAndNothingElse) {
  auto& slider = stage.addTo(area, makeSlider(0.5), {.x = 200, .y = 10, .width = 120, .height = 24});
  auto& stepper = stage.addTo(area, makeStepper(), {.x = 200, .y = 100, .width = 16, .height = 22});
  driver::turnWheel(slider, -1);
  driver::turnWheel(stepper, -1);
  EXPECT_EQ(area.offset(), 96);
  EXPECT_EQ(slider.doubleValue(), 0.5);
  EXPECT_EQ(stepper.value(), 0);
}

TEST_F(PageTest, contentMovesWithTheOffset) {
  area.scrollTo(60);
  EXPECT_EQ(driver::widget(*toggles[2]).mapTo(&driver::widget(stage.window()), QPoint()), QPoint(20, 50));
}

TEST(FocusTest, windowThatDoesNotTakeTheKeyboardIsShownWithoutIt) {
  Stage stage;
  const QWidget& widget = driver::widget(stage.window());
  stage.window().setTakesKeyboard(false);
  stage.window().setVisible(true);
  EXPECT_TRUE(widget.isVisible());
  EXPECT_TRUE(widget.testAttribute(Qt::WA_ShowWithoutActivating));
  stage.window().setVisible(false);
  stage.window().setTakesKeyboard(true);
  stage.window().setVisible(true);
  EXPECT_FALSE(widget.testAttribute(Qt::WA_ShowWithoutActivating));
}

}  // namespace
}  // namespace tarnwell::host_qt
