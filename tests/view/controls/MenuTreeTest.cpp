#include <gtest/gtest.h>

#include "kit/menus/Menu.h"
#include "kit/turn/Turn.h"
#include "view/Counter.h"
#include "view/Stage.h"
#include "view/controls/buttons/Button.h"
#include "view/controls/containers/Divider.h"
#include "view/layout/Group.h"
#include "view/layout/Spacer.h"
#include "view/tree/MountedTree.h"

namespace tarnwell::view {
namespace {

class MenuTreeTest : public testing::Test {
 protected:
  void mount(const View& content) {
    turn.perform([&] { tree.mount(content, {}); });
  }

  Lines titles() const {
    Lines found;
    for (const auto& item : menu.items()) {
      found.push_back(item->isSeparator() ? "-" : item->title());
    }
    return found;
  }

  void choose(std::size_t index) {
    turn.perform([&] { menu.items().at(index)->handler()(); });
  }

  kit::Turn turn = {};
  kit::Menu menu = kit::Menu("menu");
  MountedTree tree = MountedTree(turn, menu);
};

TEST_F(MenuTreeTest, buttonsAndDividersAreItsEntries) {
  mount(Group{.children = {Button{.title = "a"}, Divider{}, EmptyView{}, Group{.children = {Button{.title = "b"}}}}});
  EXPECT_EQ(titles(), (Lines{"a", "-", "b"}));
}

TEST_F(MenuTreeTest, choosingAnEntryRunsItsAction) {
  int chosen = 0;
  mount(Button{.title = "a", .action = [&chosen] { ++chosen; }});
  choose(0);
  EXPECT_EQ(chosen, 1);
}

TEST_F(MenuTreeTest, anEntryIsChangedAndNotMadeAnew) {
  mount(Counter{});
  const auto entry = menu.items().front();
  choose(0);
  EXPECT_EQ(titles(), Lines{"1"});
  EXPECT_EQ(menu.items().front(), entry);
}

TEST_F(MenuTreeTest, anEntryHasTheEnvironmentsStateAndKey) {
  mount(View(Button{.title = "a"}).disabled(true).keyboardShortcut({.key = "q"}));
  EXPECT_FALSE(menu.items().front()->isEnabled());
  EXPECT_EQ(menu.items().front()->keyEquivalent().key, "q");
}

TEST_F(MenuTreeTest, entriesComeAndGo) {
  mount(Numbered{.make = [](const State<int>& number) -> View {
    const View more = number.get() == 0 ? View(EmptyView{}) : View(Button{.title = "more"});
    return Group{.children = {Button{.title = "show", .action = [number] { number.set(1 - number.get()); }}, more}};
  }});
  EXPECT_EQ(titles(), Lines{"show"});
  choose(0);
  EXPECT_EQ(titles(), (Lines{"show", "more"}));
  const auto late = menu.items().back();
  choose(0);
  EXPECT_EQ(titles(), Lines{"show"});
  late->handler()();
}

TEST(DividerDeathTest, outsideOfAMenuItIsAFault) {
  EXPECT_DEATH((Stage{Divider{}}), "tarnwell: a divider stands outside of a menu");
}

}  // namespace
}  // namespace tarnwell::view
