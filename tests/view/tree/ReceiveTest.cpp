#include <gtest/gtest.h>

#include "view/Counter.h"
#include "view/Stage.h"
#include "view/controls/text/Text.h"
#include "view/layout/Spacer.h"

namespace tarnwell::view {
namespace {

class ReceiveTest : public testing::Test {
 protected:
  View receiving(const std::string& note) {
    return View(Text{"content"})
        .onReceive(
            [this](kit::NotificationCenter::Handler handler) {
              ++subscriptions;
              return center.addObserver("bell", std::move(handler));
            },
            [this, note](const kit::Notification& notification) { notes.push_back(note + " " + notification.name); });
  }

  kit::NotificationCenter center = {};
  int subscriptions = 0;
  Lines notes = {};
};

TEST_F(ReceiveTest, whatIsPostedReachesTheHandler) {
  const Stage stage{receiving("a")};
  center.post({.name = "bell"});
  center.post({.name = "whistle"});
  EXPECT_EQ(notes, Lines{"a bell"});
}

TEST_F(ReceiveTest, theNewestHandlerIsCalledThroughTheFirstSubscription) {
  Stage stage{receiving("a")};
  stage.show(receiving("b"));
  center.post({.name = "bell"});
  EXPECT_EQ(notes, Lines{"b bell"});
  EXPECT_EQ(subscriptions, 1);
}

TEST_F(ReceiveTest, aViewThatWentReceivesNothing) {
  Stage stage{receiving("a")};
  stage.show(EmptyView{});
  center.post({.name = "bell"});
  EXPECT_EQ(notes, Lines{});
}

TEST_F(ReceiveTest, whatTheHandlerChangesSettles) {
  const Numbered numbered{.make = [this](const State<int>& number) {
    return View(Text{std::to_string(number.get())})
        .onReceive(
            [this](kit::NotificationCenter::Handler handler) { return center.addObserver("bell", std::move(handler)); },
            [number](const kit::Notification&) { number.set(number.get() + 1); });
  }};
  const Stage stage{numbered};
  center.post({.name = "bell"});
  center.post({.name = "bell"});
  EXPECT_EQ(stage.dump(), "Text \"2\"\n");
}

}  // namespace
}  // namespace tarnwell::view
