#include "kit/application/ApplicationTest.h"

#include "kit/Responder.h"
#include "kit/control/Window.h"
#include "kit/controls/text/TextField.h"

namespace tarnwell::kit {
namespace {

class ResponderChainTest : public ApplicationTest {};

// Key equivalents.

TEST_F(ResponderChainTest, theFirstOfTwoEntriesWithTheSameKeyActs) {
  addEntry("Settings…", ",");
  addEntry("Show settings window", ",");
  EXPECT_TRUE(application->responders().performKeyEquivalent(key(",").key()));
  EXPECT_EQ(notes, Lines{"Settings…"});
}

TEST_F(ResponderChainTest, orderCountsAcrossSubmenus) {
  const auto view = std::make_shared<Menu>("View");
  view->addItem(entry("inner", ","));
  application->mainMenu().addItem(MenuItem::withSubmenu("View", view));
  addEntry("outer", ",");
  application->responders().performKeyEquivalent(key(",").key());
  EXPECT_EQ(notes, Lines{"inner"});
}

TEST_F(ResponderChainTest, anEntryThatCannotBeChosenLetsTheNextAct) {
  const auto disabled = entry("disabled", ",");
  disabled->setEnabled(false);
  application->mainMenu().addItem(disabled);
  application->mainMenu().addItem(MenuItem::create("unhandled", "unhandled:", ","));
  addEntry("next", ",");
  application->responders().performKeyEquivalent(key(",").key());
  EXPECT_EQ(notes, Lines{"next"});
}

TEST_F(ResponderChainTest, keysAreComparedAsTheyAre) {
  addEntry("small", "q");
  EXPECT_FALSE(application->responders().performKeyEquivalent(key("Q").key()));
  EXPECT_FALSE(application->responders().performKeyEquivalent(key("q", 0).key()));
  EXPECT_FALSE(application->responders().performKeyEquivalent(key("q", commandFlag | optionFlag).key()));
  EXPECT_EQ(notes, Lines{});
  EXPECT_TRUE(application->responders().performKeyEquivalent(key("q", commandFlag | 1U << 16U).key()));
  EXPECT_EQ(notes, Lines{"small"});
}

TEST_F(ResponderChainTest, theOpenMenuComesBeforeTheMainMenu) {
  addEntry("main", "q");
  Menu open;
  open.addItem(entry("open", "q"));
  application->responders().trackMenu(open, [this] {
    EXPECT_TRUE(application->responders().performKeyEquivalent(key("q").key()));
    EXPECT_FALSE(application->responders().performKeyEquivalent(key("x").key()));
  });
  application->responders().performKeyEquivalent(key("q").key());
  EXPECT_EQ(notes, (Lines{"open", "main"}));
}

TEST_F(ResponderChainTest, aMenuIsFilledBeforeItIsShown) {
  Menu menu;
  menu.setOpenAction([&] { menu.addItem(entry("made now", "")); });
  application->responders().trackMenu(menu, [&] { notes.push_back(menu.items().at(0)->title()); });
  EXPECT_EQ(notes, Lines{"made now"});
}

TEST_F(ResponderChainTest, menusThatThePlatformOpensComeFirstWhileTheyAreOpen) {
  const auto chosenAfter = [this](const std::function<void()>& change) {
    change();
    application->responders().performKeyEquivalent(key("q").key());
    return std::exchange(notes, {});
  };
  addEntry("main", "q");
  Menu outer;
  outer.addItem(entry("outer", "q"));
  Menu inner;
  inner.setOpenAction([&] { inner.setItems({entry("inner", "q")}); });
  EXPECT_EQ(chosenAfter([&] { application->responders().menuOpens(outer); }), Lines{"outer"});
  EXPECT_EQ(chosenAfter([&] { application->responders().menuNeedsUpdate(inner); }), Lines{"outer"});
  EXPECT_EQ(chosenAfter([&] { application->responders().menuOpens(inner); }), Lines{"inner"});
  // In whatever order they close.
  EXPECT_EQ(chosenAfter([&] { application->responders().menuCloses(outer); }), Lines{"inner"});
  EXPECT_EQ(chosenAfter([&] { application->responders().menuCloses(inner); }), Lines{"main"});
  EXPECT_EQ(chosenAfter([&] { application->responders().menuCloses(inner); }), Lines{"main"});
}

TEST_F(ResponderChainTest, aMenuThatIsOpenAlreadyKeepsItsEntries) {
  Menu menu;
  menu.setOpenAction([&] { menu.addItem(entry("made now", "")); });
  application->responders().trackMenu(menu, [&] {
    // The platform tells of the menu that it was asked to show.
    application->responders().menuNeedsUpdate(menu);
    application->responders().menuOpens(menu);
    EXPECT_EQ(menu.items().size(), 1U);
    application->responders().menuCloses(menu);
    application->responders().menuNeedsUpdate(menu);
  });
  EXPECT_EQ(menu.items().size(), 1U);
}

TEST_F(ResponderChainTest, whatAMenuChangesWhenItIsUpdatedSettles) {
  class Counting final : public Settler {
   public:
    bool settleStep() override { return false; }
    void settled() override { ++count; }
    int count = 0;
  };
  Counting settler;
  application->turn().join(settler);
  Menu menu;
  application->responders().menuNeedsUpdate(menu);
  EXPECT_EQ(settler.count, 1);
  application->turn().leave(settler);
}

TEST_F(ResponderChainTest, theKeyWindowGetsWhatNoEntryWants) {
  Window window("", "");
  TextField field;
  field.type("typed");
  window.setControls({&field});
  application->windows().setKeyWindow(&window);
  EXPECT_TRUE(application->responders().performKeyEquivalent({.charactersIgnoringModifiers = escapeKey}));
  EXPECT_FALSE(field.isEditing());
  application->windows().setKeyWindow(nullptr);
  EXPECT_FALSE(application->responders().performKeyEquivalent({.charactersIgnoringModifiers = escapeKey}));
}

// Actions.

TEST_F(ResponderChainTest, anActionGoesToItsTarget) {
  const auto target = std::make_shared<Responder>("target", "act:", notes);
  EXPECT_TRUE(application->responders().sendAction("act:", target, application.get()));
  EXPECT_EQ(notes, Lines{"target act:"});
  EXPECT_EQ(target->lastSender(), application.get());
}

TEST_F(ResponderChainTest, aTargetThatDoesNotRespondIsNotReplaced) {
  const auto target = std::make_shared<Responder>("target", "other:", notes);
  const auto delegate = std::make_shared<Responder>("delegate", "act:", notes);
  application->setDelegate(delegate);
  EXPECT_FALSE(application->responders().sendAction("act:", target, nullptr));
  EXPECT_EQ(notes, Lines{});
}

TEST_F(ResponderChainTest, withoutATargetTheDelegateComesLast) {
  const auto delegate = std::make_shared<Responder>("delegate", "act:", notes);
  application->setDelegate(delegate);
  EXPECT_TRUE(application->responders().sendAction("act:", nullptr, nullptr));
  EXPECT_FALSE(application->responders().sendAction("other:", nullptr, nullptr));
  EXPECT_EQ(notes, Lines{"delegate act:"});
}

TEST_F(ResponderChainTest, theKeyWindowComesBeforeTheApplication) {
  Window window("", "");
  window.setCloseAction([this] { notes.emplace_back("closed"); });
  EXPECT_FALSE(application->responders().sendAction("performClose:", nullptr, nullptr));
  application->windows().setKeyWindow(&window);
  EXPECT_TRUE(application->responders().sendAction("performClose:", nullptr, nullptr));
  EXPECT_EQ(notes, Lines{"closed"});
}

TEST_F(ResponderChainTest, aPanelOfThePlatformTakesTheKeysFromTheWindowBehindIt) {
  Window window("", "");
  application->windows().add(window);
  EXPECT_FALSE(application->responders().sendAction("performClose:", nullptr, nullptr));
  EXPECT_EQ(application->windows().all(), std::vector<Window*>{&window});
  application->windows().setKeyWindow(&window);
  EXPECT_TRUE(application->responders().sendAction("performClose:", nullptr, nullptr));
}

/// Is let go of by its owner while it acts.
class SelfReleasing final : public Object {
 public:
  SelfReleasing(std::shared_ptr<Object>& owner, Lines& notes) : owner_(owner), notes_(notes) {}
  ~SelfReleasing() override { notes_.emplace_back("gone"); }

  bool respondsToSelector(const Selector& /*selector*/) const override { return true; }
  void perform(const Selector& selector, Object* /*sender*/) override {
    owner_.reset();
    notes_.push_back(selector);
  }

 private:
  std::shared_ptr<Object>& owner_;
  Lines& notes_;
};

TEST_F(ResponderChainTest, aReceiverLivesUntilItsActionHasEnded) {
  std::shared_ptr<Object> owner;
  owner = std::make_shared<SelfReleasing>(owner, notes);
  application->responders().sendAction("act:", owner, nullptr);
  EXPECT_EQ(notes, (Lines{"act:", "gone"}));
}

TEST_F(ResponderChainTest, onlyWhatWouldDoSomethingCanBeChosen) {
  const auto target = std::make_shared<Responder>("target", "act:", notes);
  const auto targeted = MenuItem::create("", "act:", "");
  targeted->setTarget(target);
  const auto wronglyTargeted = MenuItem::create("", "other:", "");
  wronglyTargeted->setTarget(target);
  const auto disabled = entry("", "");
  disabled->setEnabled(false);
  const std::vector<std::pair<std::shared_ptr<MenuItem>, bool>> table = {
      {entry("", ""), true},
      {targeted, true},
      {wronglyTargeted, false},
      {MenuItem::create("", "terminate:", ""), true},
      {MenuItem::create("", "unhandled:", ""), false},
      {MenuItem::create("", "", ""), false},
      {MenuItem::withSubmenu("", std::make_shared<Menu>()), true},
      {MenuItem::separatorItem(), false},
      {disabled, false}};
  for (std::size_t i = 0; i < table.size(); ++i) {
    EXPECT_EQ(application->responders().canChoose(*table[i].first), table[i].second) << "row " << i;
  }
}

TEST_F(ResponderChainTest, choosingSendsTheEntryAsSender) {
  const auto target = std::make_shared<Responder>("target", "act:", notes);
  const auto item = MenuItem::create("", "act:", "");
  item->setTarget(target);
  application->responders().choose(item);
  EXPECT_EQ(target->lastSender(), item.get());
  item->setEnabled(false);
  application->responders().choose(item);
  EXPECT_EQ(notes, Lines{"target act:"});
}

}  // namespace
}  // namespace tarnwell::kit
