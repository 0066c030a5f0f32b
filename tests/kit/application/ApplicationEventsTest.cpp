#include "kit/application/ApplicationTest.h"

#include "kit/controls/Button.h"
#include "kit/controls/TextField.h"
#include "kit/controls/Window.h"

namespace tarnwell::kit {
namespace {

class ApplicationEventsTest : public ApplicationTest {};

/// Notes when everything settles.
class NotingSettler final : public Settler {
 public:
  NotingSettler(Turn& turn, Lines& notes, Action whenSettled = {})
      : turn_(turn), notes_(notes), whenSettled_(std::move(whenSettled)) {
    turn_.join(*this);
  }
  NotingSettler(const NotingSettler&) = delete;
  NotingSettler& operator=(const NotingSettler&) = delete;
  ~NotingSettler() override { turn_.leave(*this); }

  bool settleStep() override { return false; }
  void settled() override {
    notes_.emplace_back("settled");
    if (whenSettled_) {
      whenSettled_();
    }
  }

 private:
  Turn& turn_;
  Lines& notes_;
  Action whenSettled_;
};

TEST_F(ApplicationEventsTest, aPostedEventWaitsForALaterTurn) {
  addEntry("A", "a");
  application->postEvent(key("a"), false);
  EXPECT_EQ(notes, Lines{});
  EXPECT_TRUE(application->hasWork());
  platform.runUntilIdle(*application);
  EXPECT_EQ(notes, Lines{"A"});
  EXPECT_FALSE(application->hasWork());
}

TEST_F(ApplicationEventsTest, eventsAreHandledInOrderAndThoseAtTheStartFirst) {
  for (const std::string name : {"1", "2", "3", "4"}) {
    addEntry(name, name);
  }
  application->postEvent(key("1"), false);
  application->postEvent(key("2"), false);
  application->postEvent(key("3"), true);
  application->postEvent(key("4"), true);
  platform.runUntilIdle(*application);
  EXPECT_EQ(notes, (Lines{"4", "3", "1", "2"}));
}

TEST_F(ApplicationEventsTest, eachTurnHandlesOneEvent) {
  addEntry("A", "a");
  application->postEvent(key("a"), false);
  application->postEvent(key("a"), false);
  application->runTurn();
  EXPECT_EQ(notes, Lines{"A"});
  EXPECT_EQ(application->postedEvents(), std::deque<Event>{key("a")});
}

TEST_F(ApplicationEventsTest, whatTheEventOfATurnChangesSettlesBeforeTheQueueRuns) {
  const NotingSettler settler(application->turn(), notes);
  addEntry("event", "a");
  application->mainQueue().async([this] { notes.emplace_back("work"); });
  application->postEvent(key("a"), false);
  application->runTurn();
  EXPECT_EQ(notes, (Lines{"event", "settled", "work", "settled"}));
}

TEST_F(ApplicationEventsTest, whatWorkQueuesWaitsForTheNextTurn) {
  application->mainQueue().async([this] {
    notes.emplace_back("first");
    application->mainQueue().async([this] { notes.emplace_back("second"); });
  });
  application->runTurn();
  EXPECT_EQ(notes, Lines{"first"});
  platform.runUntilIdle(*application);
  EXPECT_EQ(notes, (Lines{"first", "second"}));
}

TEST_F(ApplicationEventsTest, anEventThatIsPostedMeanwhileComesBeforeTheNextWork) {
  addEntry("event", "a");
  application->mainQueue().async([this] {
    application->mainQueue().async([this] { notes.emplace_back("work"); });
    application->postEvent(key("a"), false);
  });
  platform.runUntilIdle(*application);
  EXPECT_EQ(notes, (Lines{"event", "work"}));
}

TEST_F(ApplicationEventsTest, theEventIsTheCurrentOneOnlyWhileItIsHandled) {
  EXPECT_EQ(application->currentEvent(), nullptr);
  const Event outer = key("a");
  const Event inner = {.type = Event::Type::rightMouseUp};
  application->sendEvent(outer, [&] {
    EXPECT_EQ(*application->currentEvent(), outer);
    application->sendEvent(inner, [&] { EXPECT_EQ(application->currentEvent()->type, Event::Type::rightMouseUp); });
    EXPECT_EQ(*application->currentEvent(), outer);
  });
  EXPECT_EQ(application->currentEvent(), nullptr);
}

TEST_F(ApplicationEventsTest, aPostedKeyIsTheCurrentEventOfItsEntry) {
  const auto item = MenuItem::create("A", "", "a");
  item->setHandler([this] { EXPECT_EQ(*application->currentEvent(), key("a")); });
  application->mainMenu().addItem(item);
  application->postEvent(key("a"), false);
  application->runTurn();
}

TEST_F(ApplicationEventsTest, aPostedReturnPressesTheButtonThatItsCommitEnables) {
  Window window("", "");
  window.joinTurn(application->turn());
  TextField field;
  Button save;
  bool committed = false;
  field.setAction([&committed](const std::string&) { committed = true; });
  save.setDefault(true);
  save.setEnabled(false);
  save.setAction([this] { notes.emplace_back("save"); });
  for (Control* control : {static_cast<Control*>(&field), static_cast<Control*>(&save)}) {
    control->joinTurn(application->turn());
  }
  window.setControls({&field, &save});
  const NotingSettler settler(application->turn(), notes, [&] { save.setEnabled(committed); });
  application->addWindow(window);
  field.type("5");
  application->postEvent(key(returnKey, 0), false);
  application->runTurn();
  EXPECT_EQ(notes, (Lines{"settled", "settled", "save", "settled", "settled"}));
  application->removeWindow(window);
}

TEST_F(ApplicationEventsTest, makesEventsWhereThePlatformDoes) {
  EXPECT_EQ(application->makeEvent(key("a")), key("a"));
  platform.traits().makesEvents = false;
  EXPECT_EQ(application->makeEvent(key("a")), std::nullopt);
}

}  // namespace
}  // namespace tarnwell::kit
