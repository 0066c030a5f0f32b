#include <gtest/gtest.h>

#include <QtGui/QFocusEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

#include "host/qt/Controls.h"
#include "host/qt/Stage.h"
#include "host/qt/WidgetDriver.h"

namespace tarnwell::host::qt {
namespace {

constexpr kit::Rect fieldPlace = {.x = 20, .y = 20, .width = 60, .height = 22};
constexpr kit::Rect savePlace = {.x = 20, .y = 80, .width = 80, .height = 24};

/// A field, and a default button that is enabled by the field's first commit.
class EditingTest : public testing::Test {
 protected:
  EditingTest() {
    save_.setEnabled(false);
    save_.setDefault(true);
    stage_.show();
  }

  QLineEdit& lineEdit() { return static_cast<QLineEdit&>(driver::widget(field_)); }

  Stage stage_;
  std::vector<std::string> committed_;
  int saved_ = 0;
  kit::Button& save_ = stage_.add(makeButton("Save", [this] { ++saved_; }), savePlace);
  kit::TextField& field_ = stage_.add(makeField("0.5",
                                                [this](const std::string& text) {
                                                  committed_.push_back(text);
                                                  field_.setText(text);
                                                  save_.setEnabled(true);
                                                }),
                                      fieldPlace);
};

using Texts = std::vector<std::string>;

TEST_F(EditingTest, typingCommitsNothing) {
  driver::type(field_, "0.7");
  EXPECT_EQ(field_.shownText(), "0.7");
  EXPECT_EQ(committed_, Texts{});
}

TEST_F(EditingTest, pressElsewhereCommitsBeforeItIsDelivered) {
  driver::type(field_, "0.7");
  ASSERT_FALSE(save_.isEnabled());
  driver::click(save_);
  EXPECT_EQ(committed_, Texts{"0.7"});
  EXPECT_EQ(saved_, 1);
}

TEST_F(EditingTest, pressOnTheGroundCommitsAndLeavesTheField) {
  driver::type(field_, "0.7");
  driver::releaseAnywhere(stage_.window());
  EXPECT_EQ(committed_, Texts{});
  driver::clickGround(stage_.window(), {.x = 300, .y = 200});
  EXPECT_EQ(committed_, Texts{"0.7"});
  EXPECT_FALSE(lineEdit().hasFocus());
}

TEST_F(EditingTest, pressInTheFieldItselfCommitsNothing) {
  driver::type(field_, "0.7");
  driver::click(field_);
  EXPECT_EQ(committed_, Texts{});
}

TEST_F(EditingTest, returnCommitsThenPressesTheDefaultButton) {
  driver::type(field_, "0.7");
  driver::key(stage_.window(), Qt::Key_Return);
  EXPECT_EQ(committed_, Texts{"0.7"});
  EXPECT_EQ(saved_, 1);
}

TEST_F(EditingTest, enterOfTheKeypadIsReturn) {
  driver::type(field_, "0.7");
  driver::key(stage_.window(), Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_EQ(saved_, 1);
}

TEST_F(EditingTest, escapeGivesUpWhatWasTyped) {
  driver::type(field_, "0.7");
  driver::key(stage_.window(), Qt::Key_Escape);
  EXPECT_EQ(committed_, Texts{});
  EXPECT_EQ(lineEdit().text(), "0.5");
}

TEST_F(EditingTest, tabCommits) {
  driver::type(field_, "0.7");
  driver::key(stage_.window(), Qt::Key_Tab);
  EXPECT_EQ(committed_, Texts{"0.7"});
}

TEST_F(EditingTest, anotherWindowOnlyBorrowsTheFocus) {
  driver::type(field_, "0.7");
  QFocusEvent left(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
  QApplication::sendEvent(&lineEdit(), &left);
  EXPECT_EQ(committed_, Texts{});
}

TEST_F(EditingTest, whatIsTypedIsNotRewrittenWhileItIsTyped) {
  driver::type(field_, "0.70");
  field_.setText("0.9");
  EXPECT_EQ(lineEdit().text(), "0.70");
}

TEST_F(EditingTest, showingTheSameTextLeavesTheCaretAlone) {
  driver::type(field_, "12345");
  driver::key(stage_.window(), Qt::Key_Home);
  driver::key(stage_.window(), Qt::Key_9);
  EXPECT_EQ(lineEdit().text(), "912345");
  EXPECT_EQ(lineEdit().cursorPosition(), 1);
}

TEST_F(EditingTest, disabledFieldTakesNoText) {
  field_.setEnabled(false);
  driver::click(field_);
  driver::key(stage_.window(), Qt::Key_7);
  EXPECT_EQ(field_.shownText(), "0.5");
}

}  // namespace
}  // namespace tarnwell::host::qt
