#include <gtest/gtest.h>

#include <QtCore/QPointer>
#include <QtGui/QAccessible>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QWidget>

#include <functional>
#include <utility>

#include "host/qt/Stage.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/controls/Controls.h"
#include "kit/controls/containers/Box.h"
#include "kit/controls/containers/ScrollArea.h"
#include "kit/controls/text/SymbolView.h"

namespace tarnwell::host_qt {
namespace {

using driver::seen;

template <class C>
C& named(C& control, const std::string& name) {
  control.setAccessibleName(name);
  return control;
}

TEST(AccessibilityTest, textThatIsSetCountsAsTyped) {
  Stage stage;
  auto& field = stage.add(makeField("1"), usualPlace);
  std::string committed;
  field.setAction([&committed](const std::string& text) { committed = text; });
  seen(field).setText(QAccessible::Value, QStringLiteral("0.3"));
  EXPECT_EQ(field.shownText(), "0.3");
  EXPECT_EQ(committed, "");
  field.commit();
  EXPECT_EQ(committed, "0.3");
}

TEST(AccessibilityTest, fieldTellsItsTextWithCaretAndSelection) {
  Stage stage;
  auto& field = stage.add(makeField("0.25 or so"), usualPlace);
  stage.show();
  auto& edit = static_cast<QLineEdit&>(driver::widget(field));
  QAccessibleTextInterface* text = seen(field).textInterface();
  ASSERT_NE(text, nullptr);
  EXPECT_TRUE(seen(field).state().editable);
  EXPECT_EQ(seen(field).text(QAccessible::Value), "0.25 or so");
  EXPECT_EQ(text->characterCount(), 10);
  EXPECT_EQ(text->text(2, 4), "25");
  int start = -1;
  int end = -1;
  EXPECT_EQ(text->textAtOffset(6, QAccessible::WordBoundary, &start, &end), "or");
  text->setCursorPosition(3);
  EXPECT_EQ(edit.cursorPosition(), 3);
  EXPECT_EQ(text->cursorPosition(), 3);
  EXPECT_EQ(text->selectionCount(), 0);
  text->addSelection(2, 4);
  EXPECT_EQ(edit.selectedText(), "25");
  ASSERT_EQ(text->selectionCount(), 1);
  text->selection(0, &start, &end);
  EXPECT_EQ(std::pair(start, end), std::pair(2, 4));
  text->removeSelection(0);
  EXPECT_FALSE(edit.hasSelectedText());
}

TEST(AccessibilityTest, fieldTellsWhereItsCharactersAre) {
  Stage stage;
  auto& field = stage.add(makeField("0.25 or so"), usualPlace);
  stage.show();
  QAccessibleTextInterface& text = *seen(field).textInterface();
  for (const int caret : {0, 4, 10}) {
    text.setCursorPosition(caret);
    for (int offset = 0; offset < text.characterCount(); ++offset) {
      const QRect character = text.characterRect(offset);
      EXPECT_TRUE(seen(field).rect().contains(character)) << offset;
      // Each half of a character belongs to the caret's place at its side.
      EXPECT_EQ(text.offsetAtPoint({character.left() + 1, character.center().y()}), offset);
    }
  }
}

TEST(AccessibilityTest, partsOfATextAreReplacedAsIfTyped) {
  Stage stage;
  std::string committed;
  auto& field = stage.add(makeField("0.25", [&committed](const std::string& text) { committed = text; }), usualPlace);
  QAccessibleEditableTextInterface* editable = seen(field).editableTextInterface();
  ASSERT_NE(editable, nullptr);
  editable->insertText(4, "6");
  EXPECT_EQ(field.shownText(), "0.256");
  editable->deleteText(0, 2);
  EXPECT_EQ(field.shownText(), "256");
  editable->replaceText(0, 2, "1");
  EXPECT_EQ(field.shownText(), "16");
  EXPECT_TRUE(field.isEditing());
  EXPECT_EQ(committed, "");
}

TEST(AccessibilityTest, takingTheKeyboardCommitsNothingOfTheFieldItself) {
  Stage stage;
  std::string committed;
  auto& field = stage.add(makeField("1", [&committed](const std::string& text) { committed = text; }), usualPlace);
  stage.show();
  seen(field).setText(QAccessible::Value, "7");
  seen(field).actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
  EXPECT_TRUE(driver::widget(field).hasFocus());
  EXPECT_EQ(committed, "");
}

/// A field, and what can be acted on beside it; `done` is what came of it, in order.
struct ActionStage : Stage {
  void noteIt(const std::string& what) { done.push_back(what); }

  std::vector<std::string> done;
  kit::TextField& field = add(makeField("1", [this](const std::string& text) { noteIt("typed " + text); }), usualPlace);
  kit::Button& button = add(makeButton("Save", [this] { noteIt("button"); }), usualPlace);
};

using Interface = QAccessibleActionInterface;

void act(QAccessibleInterface& interface, const QString& name) { interface.actionInterface()->doAction(name); }

TEST(AccessibilityTest, takingTheKeyboardCommitsFirstWhatIsBeingTyped) {
  ActionStage stage;
  seen(stage.field).setText(QAccessible::Value, "7");
  EXPECT_TRUE(stage.done.empty());
  act(seen(stage.button), Interface::setFocusAction());
  EXPECT_EQ(stage.done, std::vector<std::string>{"typed 7"});
}

TEST(AccessibilityTest, keyAtAnotherControlCommitsFirstTheTextThatWasSet) {
  ActionStage stage;
  stage.show();
  driver::widget(stage.button).setFocus(Qt::TabFocusReason);
  seen(stage.field).setText(QAccessible::Value, "7");
  driver::key(stage.window(), Qt::Key_Space);
  EXPECT_EQ(stage.done, (std::vector<std::string>{"typed 7", "button"}));
}

TEST(AccessibilityTest, escapeAtAnotherControlTakesBackTheTextThatWasSet) {
  ActionStage stage;
  stage.show();
  driver::widget(stage.button).setFocus(Qt::TabFocusReason);
  seen(stage.field).setText(QAccessible::Value, "7");
  driver::key(stage.window(), Qt::Key_Escape);
  EXPECT_EQ(stage.field.shownText(), "1");
  EXPECT_TRUE(stage.done.empty());
}

TEST(AccessibilityTest, actionOnAControlThatTheCommitEndsDoesNothing) {
  Stage stage;
  int runs = 0;
  auto& field = stage.add(makeField("1", [&stage](const std::string&) { stage.clear(); }), usualPlace);
  auto& button = stage.add(makeButton("Save", [&runs] { ++runs; }), usualPlace);
  seen(field).setText(QAccessible::Value, "7");
  act(seen(button), Interface::pressAction());
  EXPECT_EQ(runs, 0);
}

TEST(AccessibilityTest, textForAFieldThatTheCommitEndsIsLost) {
  Stage stage;
  auto& field = stage.add(makeField("1", [&stage](const std::string&) { stage.clear(); }), usualPlace);
  auto& other = stage.add(makeField("1"), usualPlace);
  const QPointer<QWidget> widget = &driver::widget(other);
  seen(field).setText(QAccessible::Value, "7");
  seen(other).setText(QAccessible::Value, "2");
  driver::settle();
  EXPECT_TRUE(widget.isNull());
}

TEST(AccessibilityTest, popUpButtonTellsWhatIsChosenAndOpens) {
  Stage stage;
  auto& button = stage.add(makePopUpButton(), usualPlace);
  stage.show();
  EXPECT_EQ(seen(button).text(QAccessible::Value), "Genie");
  EXPECT_EQ(seen(button).text(QAccessible::Description), "Genie");
  EXPECT_EQ(seen(button).childCount(), 0);
  seen(button).actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
  QWidget* menu = QApplication::activePopupWidget();
  ASSERT_NE(menu, nullptr);
  QAccessibleInterface* rows = QAccessible::queryAccessibleInterface(menu);
  ASSERT_EQ(seen(button).childCount(), 1);
  EXPECT_EQ(seen(button).child(0), rows);
  EXPECT_EQ(seen(button).indexOfChild(rows), 0);
  EXPECT_EQ(seen(button).child(1), nullptr);
  ASSERT_EQ(rows->childCount(), 3);
  EXPECT_EQ(rows->child(2)->text(QAccessible::Name), "Suck");
  rows->child(2)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  driver::settle();
  EXPECT_EQ(button.selectedIndex(), 2);
}

TEST(AccessibilityTest, panelIsADialogOfItsName) {
  kit::Window panel("about", "About Tarnwell", kit::Window::Kind::panel);
  panel.attach(testHost().peer(panel));
  panel.setAccessibleDescription("What it is.");
  panel.setVisible(true);
  QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&driver::widget(panel));
  EXPECT_EQ(interface->role(), QAccessible::Dialog);
  EXPECT_EQ(interface->text(QAccessible::Name), "About Tarnwell");
  EXPECT_EQ(interface->text(QAccessible::Description), "What it is.");
}

TEST(AccessibilityTest, tabBarTellsItsTabsAndChooses) {
  Stage stage;
  auto& bar = stage.add(makeTabBar(), {.x = 0, .y = 0, .width = 400, .height = 60});
  stage.show();
  QAccessibleInterface& list = seen(bar);
  EXPECT_EQ(list.role(), QAccessible::PageTabList);
  ASSERT_EQ(list.childCount(), 2);
  QAccessibleInterface* general = list.child(1);
  EXPECT_EQ(general->role(), QAccessible::PageTab);
  EXPECT_EQ(general->text(QAccessible::Name), "General");
  EXPECT_EQ(list.indexOfChild(general), 1);
  EXPECT_EQ(list.childAt(general->rect().center().x(), general->rect().center().y()), general);
  EXPECT_TRUE(list.child(0)->state().selected);
  general->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(bar.selectedIndex(), 1);
  EXPECT_TRUE(general->state().selected);
}

TEST(AccessibilityTest, descriptionsAndLabelsAreToldOfEveryKindOfControl) {
  Stage stage;
  auto& label = stage.add(makeLabel("Delay"), usualPlace);
  const std::vector<kit::Control*> controls = {
      &stage.add(makeSlider(0.5), usualPlace), &stage.add(makeStepper(), usualPlace),
      &stage.add(makeToggle(), usualPlace), &stage.add(makeButton("Save"), usualPlace),
      &stage.add(makeField("1"), usualPlace)};
  for (kit::Control* control : controls) {
    control->setAccessibleDescription("How long.");
    control->setLabel(&label);
    EXPECT_EQ(seen(*control).text(QAccessible::Description), "How long.");
    const auto relations = seen(*control).relations(QAccessible::Label);
    ASSERT_EQ(relations.size(), 1);
    EXPECT_EQ(relations[0].first, &seen(label));
    EXPECT_TRUE(seen(*control).relations(QAccessible::Controlled).isEmpty());
  }
  auto& popUp = stage.add(makePopUpButton(), usualPlace);
  popUp.setAccessibleDescription("Which one.");
  EXPECT_EQ(seen(popUp).text(QAccessible::Description), "Genie. Which one.");
}

TEST(AccessibilityTest, labelThatIsGoneNamesNothing) {
  Stage stage;
  auto& toggle = stage.add(makeToggle(), usualPlace);
  {
    kit::TextLabel label;
    toggle.setLabel(&label);
    EXPECT_EQ(toggle.label(), &label);
  }
  EXPECT_EQ(toggle.label(), nullptr);
  EXPECT_TRUE(seen(toggle).relations(QAccessible::Label).isEmpty());
}

TEST(AccessibilityTest, decorationIsNoObject) {
  Stage stage;
  stage.add(std::make_unique<kit::Box>(kit::Box::Kind::separator), usualPlace);
  stage.add(std::make_unique<kit::SymbolView>(), usualPlace);
  auto& tortoise = named(stage.add(std::make_unique<kit::SymbolView>(), usualPlace), "Slow");
  auto& label = stage.add(makeLabel("Text"), usualPlace);
  QAccessibleInterface& ground = *seen(label).parent();
  ASSERT_EQ(ground.childCount(), 2);
  EXPECT_EQ(ground.child(0), &seen(tortoise));
  EXPECT_EQ(ground.child(1), &seen(label));
  EXPECT_EQ(ground.indexOfChild(&seen(label)), 1);
  EXPECT_EQ(ground.child(2), nullptr);
}

TEST(AccessibilityTest, chosenTabHasTheFocusOfItsBar) {
  Stage stage;
  auto& bar = stage.add(makeTabBar(), {.x = 0, .y = 0, .width = 400, .height = 60});
  stage.show();
  EXPECT_EQ(seen(bar).focusChild(), nullptr);
  driver::keyAt(bar, Qt::Key_Right);
  EXPECT_EQ(seen(bar).focusChild(), seen(bar).child(1));
  EXPECT_TRUE(seen(bar).child(1)->state().focused);
  EXPECT_FALSE(seen(bar).child(0)->state().focused);
}

}  // namespace
}  // namespace tarnwell::host_qt
