#include <gtest/gtest.h>

#include <QtGui/QContextMenuEvent>
#include <QtGui/QFocusEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

#include "host/qt/Stage.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/controls/Controls.h"
#include "host/qt/menus/ThemedMenu.h"

namespace tarnwell::host_qt {
namespace {

constexpr kit::Rect fieldPlace = {.x = 20, .y = 20, .width = 60, .height = 22};
constexpr kit::Rect savePlace = {.x = 20, .y = 80, .width = 80, .height = 24};

/// A field, and a default button that is enabled by the field's first commit.
class EditingTest : public testing::Test {
 protected:
  EditingTest() {
    save.setEnabled(false);
    save.setDefault(true);
    stage.show();
  }

  QLineEdit& lineEdit() { return static_cast<QLineEdit&>(driver::widget(field)); }

  Stage stage;
  std::vector<std::string> committed;
  int saved = 0;
  kit::Button& save = stage.add(makeButton("Save", [this] { ++saved; }), savePlace);
  kit::TextField& field = stage.add(makeField("0.5",
                                              [this](const std::string& text) {
                                                committed.push_back(text);
                                                field.setText(text);
                                                save.setEnabled(true);
                                              }),
                                    fieldPlace);
};

using Texts = std::vector<std::string>;

TEST_F(EditingTest, contextMenuLooksAsOursAndEdits) {
  driver::type(field, "0.7");
  lineEdit().selectAll();
  QContextMenuEvent asked(QContextMenuEvent::Mouse, {5, 5}, lineEdit().mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(&lineEdit(), &asked);
  auto* menu = dynamic_cast<ThemedMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  Texts entries;
  for (const QAction* entry : menu->actions()) {
    entries.push_back(entry->isSeparator() ? "-" : (entry->isEnabled() ? "" : "no ") + entry->text().toStdString());
  }
  EXPECT_EQ(entries, (Texts{"Undo", "no Redo", "-", "Cut", "Copy", "Paste", "Delete", "-", "Select All"}));
  driver::keyTo(*menu, Qt::Key_D);
  driver::keyTo(*menu, Qt::Key_Return);
  EXPECT_EQ(field.shownText(), "");
  EXPECT_TRUE(field.isEditing());
}

TEST_F(EditingTest, typingCommitsNothing) {
  driver::type(field, "0.7");
  EXPECT_EQ(field.shownText(), "0.7");
  EXPECT_EQ(committed, Texts{});
}

TEST_F(EditingTest, pressElsewhereCommitsBeforeItIsDelivered) {
  driver::type(field, "0.7");
  ASSERT_FALSE(save.isEnabled());
  driver::click(save);
  EXPECT_EQ(committed, Texts{"0.7"});
  EXPECT_EQ(saved, 1);
}

TEST_F(EditingTest, pressOnTheGroundCommitsAndLeavesTheField) {
  driver::type(field, "0.7");
  driver::releaseAnywhere(stage.window());
  EXPECT_EQ(committed, Texts{});
  driver::clickGround(stage.window(), {.x = 300, .y = 200});
  EXPECT_EQ(committed, Texts{"0.7"});
  EXPECT_FALSE(lineEdit().hasFocus());
}

TEST_F(EditingTest, pressInTheFieldItselfCommitsNothing) {
  driver::type(field, "0.7");
  driver::click(field);
  EXPECT_EQ(committed, Texts{});
}

TEST_F(EditingTest, returnCommitsThenPressesTheDefaultButton) {
  driver::type(field, "0.7");
  driver::key(stage.window(), Qt::Key_Return);
  EXPECT_EQ(committed, Texts{"0.7"});
  EXPECT_EQ(saved, 1);
}

TEST_F(EditingTest, enterOfTheKeypadIsReturn) {
  driver::type(field, "0.7");
  driver::key(stage.window(), Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_EQ(saved, 1);
}

TEST_F(EditingTest, escapeGivesUpWhatWasTyped) {
  driver::type(field, "0.7");
  driver::key(stage.window(), Qt::Key_Escape);
  EXPECT_EQ(committed, Texts{});
  EXPECT_EQ(lineEdit().text(), "0.5");
}

TEST_F(EditingTest, tabCommits) {
  driver::type(field, "0.7");
  driver::key(stage.window(), Qt::Key_Tab);
  EXPECT_EQ(committed, Texts{"0.7"});
}

TEST_F(EditingTest, anotherWindowOnlyBorrowsTheFocus) {
  driver::type(field, "0.7");
  QFocusEvent left(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
  QApplication::sendEvent(&lineEdit(), &left);
  EXPECT_EQ(committed, Texts{});
}

TEST_F(EditingTest, whatIsTypedIsNotRewrittenWhileItIsTyped) {
  driver::type(field, "0.70");
  field.setText("0.9");
  EXPECT_EQ(lineEdit().text(), "0.70");
}

TEST_F(EditingTest, showingTheSameTextLeavesTheCaretAlone) {
  driver::type(field, "12345");
  driver::key(stage.window(), Qt::Key_Home);
  driver::key(stage.window(), Qt::Key_9);
  EXPECT_EQ(lineEdit().text(), "912345");
  EXPECT_EQ(lineEdit().cursorPosition(), 1);
}

TEST_F(EditingTest, disabledFieldTakesNoText) {
  field.setEnabled(false);
  driver::click(field);
  driver::key(stage.window(), Qt::Key_7);
  EXPECT_EQ(field.shownText(), "0.5");
}

}  // namespace
}  // namespace tarnwell::host_qt
