#include "kit/application/ApplicationTest.h"

#include "kit/control/Window.h"
#include "kit/controls/buttons/Button.h"
#include "kit/controls/text/TextField.h"

namespace tarnwell::kit {
namespace {

class EventQueueTest : public ApplicationTest {};

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

TEST_F(EventQueueTest, aPostedEventWaitsForALaterTurn) {
  addEntry("A", "a");
  application->events().post(key("a"));
  EXPECT_EQ(notes, Lines{});
  EXPECT_FALSE(application->events().isEmpty());
  platform.runUntilIdle(*application);
  EXPECT_EQ(notes, Lines{"A"});
  EXPECT_TRUE(application->events().isEmpty());
}

TEST_F(EventQueueTest, eventsAreHandledInOrder) {
  for (const std::string name : {"1", "2", "3"}) {
    addEntry(name, name);
    application->events().post(key(name));
  }
  platform.runUntilIdle(*application);
  EXPECT_EQ(notes, (Lines{"1", "2", "3"}));
}

TEST_F(EventQueueTest, eachTurnHandlesOneEvent) {
  addEntry("A", "a");
  application->events().post(key("a"));
  application->events().post(key("a"));
  application->events().runTurn();
  EXPECT_EQ(notes, Lines{"A"});
  EXPECT_EQ(application->events().posted(), std::deque<Event>{key("a")});
}

TEST_F(EventQueueTest, whatTheEventOfATurnChangesSettlesBeforeTheQueueRuns) {
  const NotingSettler settler(application->turn(), notes);
  addEntry("event", "a");
  application->events().async([this] { notes.emplace_back("work"); });
  application->events().post(key("a"));
  application->events().runTurn();
  EXPECT_EQ(notes, (Lines{"event", "settled", "work", "settled"}));
}

TEST_F(EventQueueTest, whatWorkQueuesWaitsForTheNextTurn) {
  application->events().async([this] {
    notes.emplace_back("first");
    application->events().async([this] { notes.emplace_back("second"); });
  });
  application->events().runTurn();
  EXPECT_EQ(notes, Lines{"first"});
  platform.runUntilIdle(*application);
  EXPECT_EQ(notes, (Lines{"first", "second"}));
}

TEST_F(EventQueueTest, anEventThatIsPostedMeanwhileComesBeforeTheNextWork) {
  addEntry("event", "a");
  application->events().async([this] {
    application->events().async([this] { notes.emplace_back("work"); });
    application->events().post(key("a"));
  });
  platform.runUntilIdle(*application);
  EXPECT_EQ(notes, (Lines{"event", "work"}));
}

TEST_F(EventQueueTest, theEventIsTheCurrentOneOnlyWhileItIsHandled) {
  EXPECT_EQ(application->events().currentEvent(), nullptr);
  const Event outer = key("a");
  const Event inner = {.type = Event::Type::rightMouseUp};
  application->events().send(outer, [&] {
    EXPECT_EQ(*application->events().currentEvent(), outer);
    application->events().send(
        inner, [&] { EXPECT_EQ(application->events().currentEvent()->type, Event::Type::rightMouseUp); });
    EXPECT_EQ(*application->events().currentEvent(), outer);
  });
  EXPECT_EQ(application->events().currentEvent(), nullptr);
}

TEST_F(EventQueueTest, aPostedKeyIsTheCurrentEventOfItsEntry) {
  const auto item = MenuItem::create("A", "", "a");
  item->setHandler([this] { EXPECT_EQ(*application->events().currentEvent(), key("a")); });
  application->mainMenu().addItem(item);
  application->events().post(key("a"));
  application->events().runTurn();
}

TEST_F(EventQueueTest, aPostedReturnPressesTheButtonThatItsCommitEnables) {
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
  application->windows().setKeyWindow(&window);
  field.type("5");
  application->events().post(key(returnKey, 0));
  application->events().runTurn();
  EXPECT_EQ(notes, (Lines{"settled", "settled", "save", "settled", "settled"}));
  application->windows().setKeyWindow(nullptr);
}

}  // namespace
}  // namespace tarnwell::kit
