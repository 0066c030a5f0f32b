#include "host/qt/menus/MenuBar.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtGui/QClipboard>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

#include "host/qt/Desktop.h"
#include "host/qt/WidgetDriver.h"
#include "kit/controls/text/TextField.h"

namespace tarnwell::host_qt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const kit::Action nothing = [] {};

std::vector<std::string> titlesOf(const QMenuBar& bar) {
  std::vector<std::string> titles;
  for (const QAction* action : bar.actions()) {
    titles.push_back(action->text().toStdString());
  }
  return titles;
}

void click(QMenu& menu, int index) {
  menu.popup({0, 0});
  QTest::mouseClick(menu.windowHandle(), Qt::LeftButton, {}, menu.actionGeometry(menu.actions().at(index)).center());
}

TEST(MenuBarTest, showsTheMainMenuInItsOrder) {
  Desktop desktop;
  desktop.addMenu("Tarnwell", {entry("About", nothing), kit::MenuItem::separatorItem(),
                               entry("Settings…", nothing, {.key = ","}), entry("Quit", nothing, {.key = "q"})});
  desktop.addMenu("Help", {});
  EXPECT_THAT(linesOf(desktop.menu(0)), ElementsAre("About", "-", "Settings…|Ctrl+,", "Quit|Ctrl+Q"));
  EXPECT_THAT(linesOf(desktop.menu(1)), IsEmpty());
}

TEST(MenuBarTest, eachTitleHasALetterOfItsOwn) {
  Desktop desktop;
  for (const char* title : {"Tarnwell", "File", "Edit", "Tools", "T"}) {
    desktop.addMenu(title, {});
  }
  EXPECT_THAT(titlesOf(desktop.menuBar()), ElementsAre("&Tarnwell", "&File", "&Edit", "T&ools", "T"));
}

TEST(MenuBarTest, keyEquivalentsAreShownOnly) {
  Desktop desktop;
  desktop.addMenu("Menu", {entry("Settings", nothing, {.key = ","})});
  EXPECT_TRUE(desktop.menu(0).actions().first()->shortcut().isEmpty());
}

TEST(MenuBarTest, anAmpersandIsPartOfTheTitle) {
  Desktop desktop;
  desktop.addMenu("Menu", {entry("Cut & Paste", nothing)});
  EXPECT_THAT(linesOf(desktop.menu(0)), ElementsAre("Cut && Paste"));
}

TEST(MenuBarTest, standsOnlyInTheWindowThatCarriesTheMenu) {
  Desktop desktop;
  kit::Window other("other", "Other");
  other.attach(desktop.platform().host().peer(other));
  EXPECT_EQ(driver::widget(other).findChild<QMenuBar*>(), nullptr);
  EXPECT_EQ(other.peer()->chromeHeight(300), 0);
  other.attach(nullptr);
}

TEST(MenuBarTest, standsAboveTheContentAndIsPartOfTheWindowsHeight) {
  Desktop desktop;
  desktop.addMenu("Menu", {});
  desktop.showWindow();
  const double bar = desktop.window().peer()->chromeHeight(driver::widget(desktop.window()).width());
  EXPECT_GE(bar, desktop.menuBar().height());
  EXPECT_EQ(driver::widget(desktop.window()).height(), 300 + bar);
  auto& field = desktop.add(std::make_unique<kit::TextField>(), {.x = 0, .y = 0, .width = 50, .height = 22});
  const QWidget& shown = driver::widget(field);
  EXPECT_EQ(shown.mapTo(shown.window(), QPoint(0, 0)).y(), desktop.menuBar().height());
}

TEST(MenuBarTest, entriesAreAskedForWhetherTheyCanBeChosenWhenTheirMenuOpens) {
  Desktop desktop;
  const auto close = kit::MenuItem::create("Close", "performClose:", "w");
  const auto unknown = kit::MenuItem::create("Unknown", "unknown:", {});
  desktop.addMenu("File", {close, unknown});
  desktop.showWindow();
  desktop.menu(0).popup({0, 0});
  EXPECT_THAT(linesOf(desktop.menu(0)), ElementsAre("Close|Ctrl+W", "(Unknown)"));
  desktop.menu(0).close();
  desktop.application().windows().remove(desktop.window());
  desktop.menu(0).popup({0, 0});
  EXPECT_THAT(linesOf(desktop.menu(0)), ElementsAre("(Close|Ctrl+W)", "(Unknown)"));
  desktop.menu(0).close();
}

TEST(MenuBarTest, followsEntriesThatChangeWhileTheMenuIsOpen) {
  Desktop desktop;
  const auto check = entry("Check", nothing);
  const auto menu = desktop.addMenu("Menu", {check});
  desktop.showWindow();
  desktop.menu(0).popup({0, 0});
  check->setEnabled(false);
  EXPECT_THAT(linesOf(desktop.menu(0)), ElementsAre("(Check)"));
  menu->addItem(entry("Another", nothing));
  EXPECT_THAT(linesOf(desktop.menu(0)), ElementsAre("(Check)", "Another"));
  desktop.menu(0).close();
}

TEST(MenuBarTest, aMenuIsMadeByAnEventWhenItOpens) {
  Desktop desktop;
  const auto menu = desktop.addMenu("Menu", {});
  menu->setOpenAction([&] {
    EXPECT_TRUE(desktop.application().turn().isPerforming());
    menu->setItems({entry("Made now", nothing)});
  });
  desktop.showWindow();
  desktop.menu(0).popup({0, 0});
  EXPECT_THAT(linesOf(desktop.menu(0)), ElementsAre("Made now"));
  desktop.menu(0).close();
}

TEST(MenuBarTest, choosingAnEntryRunsItOnce) {
  Desktop desktop;
  int chosen = 0;
  desktop.addMenu("Menu", {entry("Other", nothing), entry("Choose", [&chosen] { ++chosen; })});
  desktop.showWindow();
  click(desktop.menu(0), 1);
  EXPECT_EQ(chosen, 1);
}

TEST(MenuBarTest, anEntryMayReplaceItsOwnMenu) {
  Desktop desktop;
  std::shared_ptr<kit::Menu> menu;
  menu = desktop.addMenu("Menu", {entry("Replace", [&menu] { menu->setItems({entry("New", nothing)}); })});
  desktop.showWindow();
  click(desktop.menu(0), 0);
  driver::settle();
  EXPECT_THAT(linesOf(desktop.menu(0)), ElementsAre("New"));
}

TEST(MenuBarTest, controlCommaRunsOneEntryThoughTwoAnswerIt) {
  Desktop desktop;
  int first = 0;
  int second = 0;
  desktop.addMenu("Tarnwell", {entry("Settings…", [&first] { ++first; }, {.key = ","})});
  desktop.addMenu("View", {entry("Show settings window", [&second] { ++second; }, {.key = ","})});
  desktop.showWindow();
  driver::key(desktop.window(), Qt::Key_Comma, Qt::ControlModifier);
  EXPECT_EQ(first, 1);
  EXPECT_EQ(second, 0);
}

constexpr unsigned commandAndShift = kit::commandFlag | kit::shiftFlag;

TEST(MenuBarTest, shiftTellsTwoEntriesApart) {
  Desktop desktop;
  std::string chosen;
  desktop.addMenu("Edit",
                  {entry("Undo", [&chosen] { chosen += "undo "; }, {.key = "z"}),
                   entry("Redo", [&chosen] { chosen += "redo "; }, {.key = "Z", .modifierFlags = commandAndShift})});
  desktop.showWindow();
  driver::key(desktop.window(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  driver::key(desktop.window(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(chosen, "redo undo ");
  EXPECT_THAT(linesOf(desktop.menu(0)), ElementsAre("Undo|Ctrl+Z", "Redo|Ctrl+Shift+Z"));
}

TEST(MenuBarTest, anUpperCaseLetterIsShownAndTypedWithoutShift) {
  Desktop desktop;
  int chosen = 0;
  desktop.addMenu("Menu", {entry("Quit", [&chosen] { ++chosen; }, {.key = "Q"})});
  desktop.showWindow();
  EXPECT_THAT(linesOf(desktop.menu(0)), ElementsAre("Quit|Ctrl+Q"));
  driver::key(desktop.window(), Qt::Key_Q, Qt::ControlModifier);
  EXPECT_EQ(chosen, 1);
}

TEST(MenuBarTest, anEntryWithShiftIsNotTypedWithoutIt) {
  Desktop desktop;
  int chosen = 0;
  desktop.addMenu("Edit", {entry("Redo", [&chosen] { ++chosen; }, {.key = "Z", .modifierFlags = commandAndShift})});
  desktop.showWindow();
  driver::key(desktop.window(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(chosen, 0);
}

TEST(MenuBarTest, keyEquivalentClosesAnOpenMenuAndIsRun) {
  Desktop desktop;
  int chosen = 0;
  desktop.addMenu("Menu", {entry("Choose", [&chosen] { ++chosen; }, {.key = "k"})});
  desktop.addMenu("Other", {entry("Nothing", nothing)});
  desktop.showWindow();
  desktop.menu(1).popup({0, 0});
  QTest::keyClick(desktop.menu(1).windowHandle(), Qt::Key_K, Qt::ControlModifier);
  EXPECT_EQ(chosen, 1);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

// As on a keyboard: the modifier goes down before the letter does.
TEST(MenuBarTest, anOpenMenuStaysUntilAKeyChoosesSomething) {
  Desktop desktop;
  int chosen = 0;
  desktop.addMenu("Menu", {entry("Choose", [&chosen] { ++chosen; }, {.key = "K"})});
  desktop.showWindow();
  desktop.menu(0).popup({0, 0});
  QWindow* menu = desktop.menu(0).windowHandle();
  QTest::keyPress(menu, Qt::Key_Control);
  QTest::keyClick(menu, Qt::Key_G, Qt::ControlModifier);
  QTest::keyPress(menu, Qt::Key_Shift, Qt::ControlModifier);
  EXPECT_EQ(QApplication::activePopupWidget(), &desktop.menu(0));
  QTest::keyClick(menu, Qt::Key_K, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_EQ(chosen, 1);
}

TEST(MenuBarTest, f10OpensTheFirstMenu) {
  Desktop desktop;
  desktop.addMenu("Menu", {entry("Entry", nothing)});
  desktop.showWindow();
  driver::key(desktop.window(), Qt::Key_F10);
  EXPECT_EQ(QApplication::activePopupWidget(), &desktop.menu(0));
  desktop.menu(0).close();
}

class EditMenuTest : public testing::Test {
 protected:
  EditMenuTest() {
    const auto redoEntry = kit::MenuItem::create("Redo", "redo:", {});
    redoEntry->setKeyEquivalent({.key = "Z", .modifierFlags = commandAndShift});
    desktop_.addMenu(
        "Edit",
        {kit::MenuItem::create("Undo", "undo:", "z"), redoEntry, kit::MenuItem::create("Cut", "cut:", "x"),
         kit::MenuItem::create("Copy", "copy:", "c"), kit::MenuItem::create("Paste", "paste:", "v"),
         kit::MenuItem::create("Delete", "delete:", {}), kit::MenuItem::create("Select All", "selectAll:", "a")});
    field_ = &desktop_.add(std::make_unique<kit::TextField>(), {.x = 10, .y = 10, .width = 100, .height = 22});
    field_->setText("0.25");
    desktop_.showWindow();
  }

  enum Command { undo, redo, cut, copy, paste, erase, selectAll };

  void choose(Command command) { click(desktop_.menu(0), command); }
  std::vector<std::string> lines() {
    desktop_.menu(0).popup({0, 0});
    const auto shown = linesOf(desktop_.menu(0));
    desktop_.menu(0).close();
    return shown;
  }

  Desktop desktop_;
  kit::TextField* field_ = nullptr;
};

TEST_F(EditMenuTest, nothingCanBeEditedOutsideAField) {
  EXPECT_THAT(lines(), ElementsAre("(Undo|Ctrl+Z)", "(Redo|Ctrl+Shift+Z)", "(Cut|Ctrl+X)", "(Copy|Ctrl+C)",
                                   "(Paste|Ctrl+V)", "(Delete)", "(Select All|Ctrl+A)"));
}

TEST_F(EditMenuTest, offersWhatTheFieldCanDo) {
  driver::click(*field_);
  EXPECT_THAT(lines(), ElementsAre("(Undo|Ctrl+Z)", "(Redo|Ctrl+Shift+Z)", "(Cut|Ctrl+X)", "(Copy|Ctrl+C)",
                                   "Paste|Ctrl+V", "(Delete)", "Select All|Ctrl+A"));
  choose(selectAll);
  EXPECT_THAT(lines(), ElementsAre("(Undo|Ctrl+Z)", "(Redo|Ctrl+Shift+Z)", "Cut|Ctrl+X", "Copy|Ctrl+C", "Paste|Ctrl+V",
                                   "Delete", "Select All|Ctrl+A"));
}

TEST_F(EditMenuTest, commandsWorkOnTheFieldAndCountAsTyping) {
  driver::click(*field_);
  choose(selectAll);
  choose(cut);
  EXPECT_EQ(QApplication::clipboard()->text(), "0.25");
  EXPECT_TRUE(field_->isEditing());
  EXPECT_EQ(field_->shownText(), "");
  choose(paste);
  choose(paste);
  EXPECT_EQ(field_->shownText(), "0.250.25");
  choose(undo);
  EXPECT_EQ(field_->shownText(), "0.25");
  choose(redo);
  EXPECT_EQ(field_->shownText(), "0.250.25");
  choose(selectAll);
  choose(erase);
  EXPECT_EQ(field_->shownText(), "");
  EXPECT_EQ(field_->text(), "0.25");
}

TEST_F(EditMenuTest, openingAMenuEndsNoEditing) {
  int commits = 0;
  field_->setAction([&commits](const std::string&) { ++commits; });
  driver::type(*field_, "7");
  QMenuBar& bar = desktop_.menuBar();
  const QPoint title = bar.mapTo(bar.window(), bar.actionGeometry(bar.actions().first()).center());
  QTest::mouseClick(bar.window()->windowHandle(), Qt::LeftButton, {}, title);
  ASSERT_EQ(QApplication::activePopupWidget(), &desktop_.menu(0));
  EXPECT_TRUE(field_->isEditing());
  desktop_.menu(0).close();
  EXPECT_TRUE(driver::widget(*field_).hasFocus());
  EXPECT_EQ(commits, 0);
}

TEST_F(EditMenuTest, theFieldsOwnKeysComeFirst) {
  driver::click(*field_);
  driver::key(desktop_.window(), Qt::Key_A, Qt::ControlModifier);
  EXPECT_TRUE(static_cast<QLineEdit&>(driver::widget(*field_)).hasSelectedText());
}

}  // namespace
}  // namespace tarnwell::host_qt
