#include "kit/application/StatusItem.h"

#include <gtest/gtest.h>

#include "host/headless/HeadlessPlatform.h"
#include "kit/Responder.h"
#include "kit/application/Application.h"

namespace tarnwell::kit {
namespace {

using Lines = std::vector<std::string>;

class StatusItemTest : public testing::Test {
 protected:
  StatusItem makeItem() { return {*application, StatusItem::variableLength, "Utility App"}; }

  host_headless::HeadlessPlatform platform;
  std::shared_ptr<Application> application = Application::create(platform);
  Lines notes;
  std::shared_ptr<Responder> target = std::make_shared<Responder>("target", "click:", notes);
};

TEST_F(StatusItemTest, comesAndGoesInTheStatusBar) {
  {
    const StatusItem item = makeItem();
    EXPECT_EQ(platform.statusItems(), std::vector<StatusItem*>{const_cast<StatusItem*>(&item)});
  }
  EXPECT_EQ(platform.statusItems().size(), 0U);
  EXPECT_EQ(platform.journal().lines(),
            (Lines{"status item \"Utility App\": added", "status item \"Utility App\": removed"}));
}

TEST_F(StatusItemTest, theButtonTellsOfAnotherImageOnce) {
  const StatusItem item = makeItem();
  platform.journal().clear();
  item.button()->setImage({.symbol = "star"});
  item.button()->setImage({.symbol = "star"});
  EXPECT_EQ(platform.journal().lines(), Lines{"status item \"Utility App\": image star"});
}

TEST_F(StatusItemTest, thePeerHearsOfAnotherMenuOnce) {
  StatusItem item = makeItem();
  platform.journal().clear();
  const auto menu = std::make_shared<Menu>();
  for (const auto& next : {menu, menu, std::shared_ptr<Menu>()}) {
    item.setMenu(next);
  }
  EXPECT_EQ(platform.journal().lines(),
            (Lines{"status item \"Utility App\": menu attached", "status item \"Utility App\": menu detached"}));
}

TEST_F(StatusItemTest, onlyTheReleasesThatWereAskedForSendTheAction) {
  StatusItem item = makeItem();
  item.button()->setAction("click:");
  item.button()->setTarget(target);
  item.mouseUp(Event::Type::rightMouseUp);
  EXPECT_EQ(notes.size(), 0U);
  item.mouseUp(Event::Type::leftMouseUp);
  EXPECT_EQ(notes.size(), 1U);
  item.button()->sendActionOn(maskOf(Event::Type::rightMouseUp));
  item.mouseUp(Event::Type::leftMouseUp);
  EXPECT_EQ(notes.size(), 1U);
  item.mouseUp(Event::Type::rightMouseUp);
  EXPECT_EQ(notes, (Lines{"target click:", "target click:"}));
  EXPECT_EQ(target->lastSender(), item.button().get());
}

TEST_F(StatusItemTest, withoutATargetTheActionGoesUpTheChain) {
  StatusItem item = makeItem();
  item.button()->setAction("terminate:");
  item.performClick();
  EXPECT_TRUE(platform.hasTerminated());
}

TEST_F(StatusItemTest, anAttachedMenuOpensAtEachClickAndReplacesTheAction) {
  StatusItem item = makeItem();
  item.button()->setAction("click:");
  item.button()->setTarget(target);
  const auto menu = std::make_shared<Menu>();
  menu->addItem(MenuItem::create("Quit", "terminate:", "q"));
  item.setMenu(menu);
  int opened = 0;
  platform.setMenuScript([&](auto& open) {
    ++opened;
    EXPECT_EQ(open.titles(), Lines{"Quit"});
  });
  item.mouseUp(Event::Type::leftMouseUp);
  item.mouseUp(Event::Type::rightMouseUp);
  item.performClick();
  EXPECT_EQ(opened, 3);
  EXPECT_EQ(notes.size(), 0U);
}

TEST_F(StatusItemTest, aMenuThatIsDetachedWhileItIsOpenStaysUntilItCloses) {
  StatusItem item = makeItem();
  item.setMenu(std::make_shared<Menu>());
  platform.setMenuScript([&](auto& open) {
    item.setMenu(nullptr);
    EXPECT_EQ(open.titles(), Lines{});
  });
  item.performClick();
  EXPECT_EQ(item.menu(), nullptr);
}

TEST_F(StatusItemTest, withoutAButtonNothingHappens) {
  platform.traits().hasStatusButtons = false;
  StatusItem item = makeItem();
  item.setMenu(std::make_shared<Menu>());
  EXPECT_EQ(item.button(), nullptr);
  item.mouseUp(Event::Type::leftMouseUp);
  item.performClick();
  EXPECT_EQ(platform.journal().lines(), Lines{});
}

TEST_F(StatusItemTest, theActionMayEndTheItem) {
  auto item = std::make_unique<StatusItem>(*application, StatusItem::variableLength, "");
  class Ending final : public Object {
   public:
    explicit Ending(std::unique_ptr<StatusItem>& item) : item_(item) {}
    bool respondsToSelector(const Selector& /*selector*/) const override { return true; }
    void perform(const Selector& /*selector*/, Object* /*sender*/) override { item_.reset(); }

   private:
    std::unique_ptr<StatusItem>& item_;
  };
  const auto ending = std::make_shared<Ending>(item);
  item->button()->setAction("end:");
  item->button()->setTarget(ending);
  item->mouseUp(Event::Type::leftMouseUp);
  EXPECT_EQ(item, nullptr);
  EXPECT_EQ(platform.statusItems().size(), 0U);
}

}  // namespace
}  // namespace tarnwell::kit
