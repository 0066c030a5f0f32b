#include "kit/menus/Menu.h"

#include <gtest/gtest.h>

namespace tarnwell::kit {
namespace {

std::shared_ptr<MenuItem> entry(const std::string& title, const std::string& key = "") {
  return MenuItem::create(title, "act:", key);
}

constexpr auto anyEntry = [](const MenuItem&) { return true; };

TEST(MenuTest, entriesStandInTheOrderInWhichTheyCame) {
  Menu menu("File");
  const auto first = entry("first");
  const auto second = MenuItem::separatorItem();
  menu.addItem(first);
  menu.addItem(second);
  EXPECT_EQ(menu.title(), "File");
  EXPECT_EQ(menu.items(), (std::vector{first, second}));
}

TEST(MenuTest, tellsOfNewEntriesAndOfChangedOnes) {
  Menu menu;
  int told = 0;
  const auto subscription = menu.observe([&] { ++told; });
  const auto item = entry("a");
  menu.addItem(item);
  EXPECT_EQ(told, 1);
  item->setTitle("b");
  item->setEnabled(false);
  item->setKeyEquivalent({.key = "k"});
  EXPECT_EQ(told, 4);
}

TEST(MenuTest, whatStaysAsItIsIsNotTold) {
  Menu menu;
  const auto item = entry("a");
  menu.setItems({item});
  int told = 0;
  const auto subscription = menu.observe([&] { ++told; });
  item->setTitle("a");
  item->setEnabled(true);
  item->setKeyEquivalent(item->keyEquivalent());
  menu.setItems({item});
  EXPECT_EQ(told, 0);
}

TEST(MenuTest, anEntryThatLeftIsNotHeardAnyMore) {
  Menu menu;
  const auto item = entry("a");
  menu.setItems({item});
  menu.setItems({entry("b")});
  int told = 0;
  const auto subscription = menu.observe([&] { ++told; });
  item->setTitle("c");
  EXPECT_EQ(told, 0);
}

TEST(MenuTest, anEntryMayOutliveItsMenu) {
  const auto item = entry("a");
  {
    Menu menu;
    menu.addItem(item);
  }
  item->setTitle("b");
  EXPECT_EQ(item->title(), "b");
}

TEST(MenuTest, theFirstEntryInOrderAnswersAKey) {
  Menu menu;
  const auto nested = std::make_shared<Menu>();
  const auto inner = entry("inner", ",");
  nested->addItem(inner);
  menu.addItem(MenuItem::withSubmenu("sub", nested));
  const auto outer = entry("outer", ",");
  menu.addItem(outer);
  const KeyEvent comma = {.charactersIgnoringModifiers = ",", .modifierFlags = commandFlag};
  EXPECT_EQ(menu.itemMatching(comma, anyEntry), inner);
  EXPECT_EQ(menu.itemMatching(comma, [&](const MenuItem& item) { return &item != inner.get(); }), outer);
  EXPECT_EQ(menu.itemMatching(comma, [](const MenuItem&) { return false; }), nullptr);
}

TEST(MenuItemTest, aKeyMatchesWithItsModifiersAlone) {
  struct Row {
    std::string key = {};
    unsigned flags = 0;
    bool matches = false;
  };
  const auto item = entry("", "q");
  for (const Row& row : {Row{"q", commandFlag, true}, Row{"q", commandFlag | shiftFlag, true},
                         Row{"q", commandFlag | 1U << 16U, true}, Row{"q", 0, false}, Row{"q", controlFlag, false},
                         Row{"q", commandFlag | optionFlag, false}, Row{"q", commandFlag | controlFlag, false},
                         Row{"Q", commandFlag, false}, Row{"", commandFlag, false}, Row{"qq", commandFlag, false}}) {
    EXPECT_EQ(item->matches({.charactersIgnoringModifiers = row.key, .modifierFlags = row.flags}), row.matches)
        << row.key << " " << row.flags;
  }
}

TEST(MenuItemTest, aKeyMatchesByWhatMenusShowForItToo) {
  const auto item = entry("", "Q");
  const auto pressed = [](const char* shown) {
    return KeyEvent{.charactersIgnoringModifiers = "q", .modifierFlags = commandFlag, .shownInMenus = shown};
  };
  EXPECT_TRUE(item->matches(pressed("Q")));
  EXPECT_FALSE(item->matches(pressed("")));
}

TEST(MenuItemTest, shiftHasToBeHeldWhereTheEntryNamesIt) {
  const auto item = entry("");
  item->setKeyEquivalent({.key = "Z", .modifierFlags = commandFlag | shiftFlag});
  EXPECT_TRUE(item->matches({.charactersIgnoringModifiers = "Z", .modifierFlags = commandFlag | shiftFlag}));
  EXPECT_FALSE(item->matches({.charactersIgnoringModifiers = "Z", .modifierFlags = commandFlag}));
}

TEST(MenuItemTest, withoutAKeyNothingMatches) {
  EXPECT_FALSE(entry("")->matches({.charactersIgnoringModifiers = "", .modifierFlags = commandFlag}));
}

TEST(MenuItemTest, theTargetIsHeldWeakly) {
  const auto item = entry("");
  auto target = std::make_shared<MenuItem>();
  item->setTarget(target);
  EXPECT_EQ(item->target(), target);
  target.reset();
  EXPECT_EQ(item->target(), nullptr);
}

TEST(MenuTest, theOpenActionMayReplaceItself) {
  Menu menu;
  int runs = 0;
  menu.setOpenAction([&] {
    ++runs;
    menu.setOpenAction({});
  });
  menu.willOpen();
  menu.willOpen();
  EXPECT_EQ(runs, 1);
}

}  // namespace
}  // namespace tarnwell::kit
