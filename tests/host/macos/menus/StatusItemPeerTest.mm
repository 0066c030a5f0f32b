#include "host/macos/menus/StatusItemPeer.h"

#include <gtest/gtest.h>

#include "host/macos/Frameworks.h"
#include "host/macos/Stage.h"

namespace tarnwell::host_macos {
namespace {

class Target final : public kit::Object {
 public:
  Target() {
    respondTo("clicked:", [this](kit::Object* /*sender*/) { ++clicks; });
  }

  int clicks = 0;
};

TEST(StatusItemPeerTest, aClickSendsTheActionOfTheButton) {
  Stage stage;
  const auto target = std::make_shared<Target>();
  kit::StatusItem item(*stage.application, kit::StatusItem::variableLength, "Item");
  item.button()->setTarget(target);
  item.button()->setAction("clicked:");
  NSStatusBarButton* button = [frameworks::statusItem() button];
  [button sendAction:[button action] to:[button target]];
  EXPECT_EQ(target->clicks, 1);
}

TEST(StatusItemPeerTest, thePlatformHasTheMenuAndItsEntriesRun) {
  Stage stage;
  int runs = 0;
  const auto menu = std::make_shared<kit::Menu>();
  menu->addItem(entry("Run", [&runs] { ++runs; }));
  kit::StatusItem item(*stage.application, kit::StatusItem::variableLength, "Item");
  item.setMenu(menu);
  [[frameworks::statusItem() menu] performActionForItemAtIndex:0];
  EXPECT_EQ(runs, 1);
  item.setMenu(nullptr);
  EXPECT_EQ([frameworks::statusItem() menu], nil);
}

TEST(StatusItemPeerTest, entriesAreMadeAnewWhenTheMenuChanges) {
  Stage stage;
  const auto menu = std::make_shared<kit::Menu>();
  kit::StatusItem item(*stage.application, kit::StatusItem::variableLength, "Item");
  item.setMenu(menu);
  menu->addItem(entry("Late", [] {}));
  EXPECT_EQ([[frameworks::statusItem() menu] numberOfItems], 1);
}

TEST(StatusItemPeerTest, theIconGoesWithTheItem) {
  Stage stage;
  {
    const kit::StatusItem item(*stage.application, kit::StatusItem::variableLength, "Item");
    EXPECT_NE(frameworks::statusItem(), nil);
  }
  EXPECT_EQ(frameworks::statusItem(), nil);
}

}  // namespace
}  // namespace tarnwell::host_macos
