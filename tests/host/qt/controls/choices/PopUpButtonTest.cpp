#include <gtest/gtest.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <algorithm>
#include <array>
#include <climits>

#include "host/qt/Stage.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/controls/Controls.h"

namespace tarnwell::host_qt {
namespace {

TEST(PopUpButtonTest, choosesFromItsMenu) {
  Stage stage;
  std::vector<int> chosen;
  const auto& button = stage.add(makePopUpButton([&chosen](int index) { chosen.push_back(index); }), usualPlace);
  stage.show();
  driver::choose(button, 2);
  EXPECT_EQ(button.selectedIndex(), 2);
  EXPECT_EQ(chosen, std::vector{2});
}

TEST(PopUpButtonTest, choosesWithTheKeyboard) {
  Stage stage;
  const auto& button = stage.add(makePopUpButton(), usualPlace);
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
  const auto& button = stage.add(makePopUpButton(), usualPlace);
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
  const auto& button = stage.add(makePopUpButton(), usualPlace);
  stage.show();
  driver::keyAt(button, Qt::Key_S);
  EXPECT_EQ(button.selectedIndex(), 1);
  driver::keyAt(button, Qt::Key_S);
  EXPECT_EQ(button.selectedIndex(), 2);
  driver::keyAt(button, Qt::Key_G);
  EXPECT_EQ(button.selectedIndex(), 0);
}

TEST(PopUpButtonTest, spaceOpensTheMenuRightAfterALetter) {
  Stage stage;
  const auto& button = stage.add(makePopUpButton(), usualPlace);
  stage.show();
  driver::keyAt(button, Qt::Key_S);
  driver::key(stage.window(), Qt::Key_Space);
  EXPECT_EQ(button.selectedIndex(), 1);
  EXPECT_NE(QApplication::activePopupWidget(), nullptr);
}

TEST(PopUpButtonTest, menuMarksWhatIsChosen) {
  Stage stage;
  auto& button = stage.add(makePopUpButton(), usualPlace);
  button.setSelectedIndex(1);
  stage.show();
  driver::click(button);
  const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(menu->actions().at(1)->isChecked(), true);
  EXPECT_EQ(menu->activeAction(), menu->actions().at(1));
}

struct Columns {
  int first = INT_MAX;
  int last = -1;
};

/// Where one picture differs from the other.
Columns difference(const QImage& one, const QImage& other) {
  Columns found;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      if (one.pixel(x, y) != other.pixel(x, y)) {
        found = {.first = std::min(found.first, x), .last = std::max(found.last, x)};
      }
    }
  }
  return found;
}

/// Of an item with a symbol, of the same without one, and of an item of nothing.
void expectTheSymbolBehindTheTitle(const std::array<QImage, 3>& pictures) {
  const auto& [whole, titleAlone, nothing] = pictures;
  const Columns title = difference(titleAlone, nothing);
  const Columns symbol = difference(whole, titleAlone);
  EXPECT_GE(title.last, title.first);
  EXPECT_GE(symbol.last, symbol.first);
  EXPECT_GT(symbol.first, title.last);
}

kit::PopUpButton& addButtonOfThreePictures(Stage& stage) {
  auto& button = stage.add(makePopUpButton(), usualPlace);
  button.setItems({{.title = "Genie", .symbol = "tornado"}, {.title = "Genie"}, {}});
  button.setSelectedIndex(-1);
  stage.show();
  return button;
}

TEST(PopUpButtonTest, symbolStandsBehindTheTitle) {
  Stage stage;
  auto& button = addButtonOfThreePictures(stage);
  std::array<QImage, 3> pictures;
  for (int i = 0; i < 3; ++i) {
    button.setSelectedIndex(i);
    pictures.at(static_cast<std::size_t>(i)) = driver::widget(button).grab().toImage();
  }
  expectTheSymbolBehindTheTitle(pictures);
}

TEST(PopUpButtonTest, symbolStandsBehindTheTitleInTheMenuToo) {
  Stage stage;
  driver::click(addButtonOfThreePictures(stage));
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  menu->setActiveAction(nullptr);
  std::array<QImage, 3> pictures;
  for (int i = 0; i < 3; ++i) {
    pictures.at(static_cast<std::size_t>(i)) = menu->grab(menu->actionGeometry(menu->actions().at(i))).toImage();
  }
  expectTheSymbolBehindTheTitle(pictures);
}

TEST(PopUpMenuTest, lettersChooseRowsOfTheOpenMenu) {
  Stage stage;
  auto& button = stage.add(makePopUpButton(), usualPlace);
  stage.show();
  driver::click(button);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  driver::keyTo(*menu, Qt::Key_S);
  EXPECT_EQ(menu->activeAction(), menu->actions().at(1));
  driver::keyTo(*menu, Qt::Key_S);
  EXPECT_EQ(menu->activeAction(), menu->actions().at(2));
  driver::keyTo(*menu, Qt::Key_Return);
  EXPECT_EQ(button.selectedIndex(), 2);
}

}  // namespace
}  // namespace tarnwell::host_qt
