#include "kit/application/ApplicationTest.h"

#include "kit/Responder.h"
#include "kit/controls/TextField.h"
#include "kit/controls/Window.h"

namespace tarnwell::kit {
namespace {

// Key equivalents.

TEST_F(ApplicationTest, theFirstOfTwoEntriesWithTheSameKeyActs) {
  addEntry("Settings…", ",");
  addEntry("Show settings window", ",");
  EXPECT_TRUE(application->performKeyEquivalent(key(",").key()));
  EXPECT_EQ(notes, Lines{"Settings…"});
}

TEST_F(ApplicationTest, orderCountsAcrossSubmenus) {
  const auto view = std::make_shared<Menu>("View");
  view->addItem(entry("inner", ","));
  application->mainMenu().addItem(MenuItem::withSubmenu("View", view));
  addEntry("outer", ",");
  application->performKeyEquivalent(key(",").key());
  EXPECT_EQ(notes, Lines{"inner"});
}

TEST_F(ApplicationTest, anEntryThatCannotBeChosenLetsTheNextAct) {
  const auto disabled = entry("disabled", ",");
  disabled->setEnabled(false);
  application->mainMenu().addItem(disabled);
  application->mainMenu().addItem(MenuItem::create("unhandled", "unhandled:", ","));
  addEntry("next", ",");
  application->performKeyEquivalent(key(",").key());
  EXPECT_EQ(notes, Lines{"next"});
}

TEST_F(ApplicationTest, keysAreComparedAsTheyAre) {
  addEntry("small", "q");
  EXPECT_FALSE(application->performKeyEquivalent(key("Q").key()));
  EXPECT_FALSE(application->performKeyEquivalent(key("q", 0).key()));
  EXPECT_FALSE(application->performKeyEquivalent(key("q", commandFlag | optionFlag).key()));
  EXPECT_EQ(notes, Lines{});
  EXPECT_TRUE(application->performKeyEquivalent(key("q", commandFlag | 1U << 16U).key()));
  EXPECT_EQ(notes, Lines{"small"});
}

TEST_F(ApplicationTest, theOpenMenuComesBeforeTheMainMenu) {
  addEntry("main", "q");
  Menu open;
  open.addItem(entry("open", "q"));
  application->trackMenu(open, [this] {
    EXPECT_TRUE(application->performKeyEquivalent(key("q").key()));
    EXPECT_FALSE(application->performKeyEquivalent(key("x").key()));
  });
  application->performKeyEquivalent(key("q").key());
  EXPECT_EQ(notes, (Lines{"open", "main"}));
}

TEST_F(ApplicationTest, aMenuIsFilledBeforeItIsShown) {
  Menu menu;
  menu.setOpenAction([&] { menu.addItem(entry("made now", "")); });
  application->trackMenu(menu, [&] { notes.push_back(menu.items().at(0)->title()); });
  EXPECT_EQ(notes, Lines{"made now"});
}

TEST_F(ApplicationTest, menusThatThePlatformOpensComeFirstWhileTheyAreOpen) {
  const auto chosenAfter = [this](const std::function<void()>& change) {
    change();
    application->performKeyEquivalent(key("q").key());
    return std::exchange(notes, {});
  };
  addEntry("main", "q");
  Menu outer;
  outer.addItem(entry("outer", "q"));
  Menu inner;
  inner.setOpenAction([&] { inner.setItems({entry("inner", "q")}); });
  EXPECT_EQ(chosenAfter([&] { application->menuOpens(outer); }), Lines{"outer"});
  EXPECT_EQ(chosenAfter([&] { application->menuOpens(inner); }), Lines{"inner"});
  EXPECT_EQ(chosenAfter([&] { application->menuCloses(); }), Lines{"outer"});
  EXPECT_EQ(chosenAfter([&] { application->menuCloses(); }), Lines{"main"});
}

TEST_F(ApplicationTest, aMenuThatIsOpenAlreadyKeepsItsEntries) {
  Menu menu;
  menu.setOpenAction([&] { menu.addItem(entry("made now", "")); });
  application->trackMenu(menu, [&] {
    // The platform tells of the menu that it was asked to show.
    application->menuOpens(menu);
    EXPECT_EQ(menu.items().size(), 1U);
    application->menuCloses();
  });
  EXPECT_EQ(menu.items().size(), 1U);
}

TEST_F(ApplicationTest, whatAMenuChangesWhenThePlatformOpensItSettles) {
  class Counting final : public Settler {
   public:
    bool settleStep() override { return false; }
    void settled() override { ++count; }
    int count = 0;
  };
  Counting settler;
  application->turn().join(settler);
  Menu menu;
  application->menuOpens(menu);
  EXPECT_EQ(settler.count, 1);
  application->menuCloses();
  application->turn().leave(settler);
}

TEST_F(ApplicationTest, theKeyWindowGetsWhatNoEntryWants) {
  Window window("", "");
  TextField field;
  field.type("typed");
  window.setControls({&field});
  application->addWindow(window);
  EXPECT_TRUE(application->performKeyEquivalent({.charactersIgnoringModifiers = escapeKey}));
  EXPECT_FALSE(field.isEditing());
  application->removeWindow(window);
  EXPECT_FALSE(application->performKeyEquivalent({.charactersIgnoringModifiers = escapeKey}));
}

// Actions.

TEST_F(ApplicationTest, anActionGoesToItsTarget) {
  const auto target = std::make_shared<Responder>("target", "act:", notes);
  EXPECT_TRUE(application->sendAction("act:", target, application.get()));
  EXPECT_EQ(notes, Lines{"target act:"});
  EXPECT_EQ(target->lastSender(), application.get());
}

TEST_F(ApplicationTest, aTargetThatDoesNotRespondIsNotReplaced) {
  const auto target = std::make_shared<Responder>("target", "other:", notes);
  const auto delegate = std::make_shared<Responder>("delegate", "act:", notes);
  application->setDelegate(delegate);
  EXPECT_FALSE(application->sendAction("act:", target, nullptr));
  EXPECT_EQ(notes, Lines{});
}

TEST_F(ApplicationTest, withoutATargetTheDelegateComesLast) {
  const auto delegate = std::make_shared<Responder>("delegate", "act:", notes);
  application->setDelegate(delegate);
  EXPECT_TRUE(application->sendAction("act:", nullptr, nullptr));
  EXPECT_FALSE(application->sendAction("other:", nullptr, nullptr));
  EXPECT_EQ(notes, Lines{"delegate act:"});
}

TEST_F(ApplicationTest, theApplicationComesBeforeItsDelegate) {
  const auto delegate = std::make_shared<Responder>("delegate", "terminate:", notes);
  application->setDelegate(delegate);
  application->sendAction("terminate:", nullptr, nullptr);
  EXPECT_EQ(notes, Lines{});
  EXPECT_EQ(platform.journal().lines(), Lines{"terminate"});
}

TEST_F(ApplicationTest, theKeyWindowComesBeforeTheApplication) {
  Window window("", "");
  window.setCloseAction([this] { notes.emplace_back("closed"); });
  EXPECT_FALSE(application->sendAction("performClose:", nullptr, nullptr));
  application->addWindow(window);
  EXPECT_TRUE(application->sendAction("performClose:", nullptr, nullptr));
  EXPECT_EQ(notes, Lines{"closed"});
}

TEST_F(ApplicationTest, aPanelOfThePlatformTakesTheKeysFromTheWindowBehindIt) {
  Window window("", "");
  application->addWindow(window);
  application->resignKeyWindow();
  EXPECT_EQ(application->keyWindow(), nullptr);
  EXPECT_FALSE(application->sendAction("performClose:", nullptr, nullptr));
  EXPECT_EQ(application->windows(), std::vector<Window*>{&window});
  application->setKeyWindow(window);
  EXPECT_TRUE(application->sendAction("performClose:", nullptr, nullptr));
}

TEST_F(ApplicationTest, aDelegateIsHeldWeakly) {
  auto delegate = std::make_shared<Responder>("delegate", "act:", notes);
  application->setDelegate(delegate);
  delegate.reset();
  EXPECT_EQ(application->delegate(), nullptr);
  EXPECT_FALSE(application->sendAction("act:", nullptr, nullptr));
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

TEST_F(ApplicationTest, aReceiverLivesUntilItsActionHasEnded) {
  std::shared_ptr<Object> owner;
  owner = std::make_shared<SelfReleasing>(owner, notes);
  application->setDelegate(owner);
  application->sendAction("act:", nullptr, nullptr);
  EXPECT_EQ(notes, (Lines{"act:", "gone"}));
}

TEST_F(ApplicationTest, onlyWhatWouldDoSomethingCanBeChosen) {
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
    EXPECT_EQ(application->canChoose(*table[i].first), table[i].second) << "row " << i;
  }
}

TEST_F(ApplicationTest, choosingSendsTheEntryAsSender) {
  const auto target = std::make_shared<Responder>("target", "act:", notes);
  const auto item = MenuItem::create("", "act:", "");
  item->setTarget(target);
  application->choose(item);
  EXPECT_EQ(target->lastSender(), item.get());
  item->setEnabled(false);
  application->choose(item);
  EXPECT_EQ(notes, Lines{"target act:"});
}

// What the platform does.

TEST_F(ApplicationTest, theStandardActionsReachThePlatform) {
  application->activateIgnoringOtherApps(true);
  application->sendAction("orderFrontStandardAboutPanel:", nullptr, nullptr);
  EXPECT_EQ(platform.journal().lines(), (Lines{"activate", "about panel"}));
}

TEST_F(ApplicationTest, theDelegateHearsOfTheEndFirst) {
  const auto delegate = std::make_shared<Responder>("delegate", "applicationWillTerminate:", notes);
  application->setDelegate(delegate);
  application->terminate(nullptr);
  EXPECT_EQ(notes, Lines{"delegate applicationWillTerminate:"});
  EXPECT_TRUE(platform.hasTerminated());
}

TEST_F(ApplicationTest, noTurnRunsAfterTheEnd) {
  application->mainQueue().async([this] { notes.emplace_back("work"); });
  application->terminate(nullptr);
  platform.runUntilIdle(*application);
  EXPECT_EQ(notes, Lines{});
}

TEST_F(ApplicationTest, theDelegateHearsOfTheLaunch) {
  const auto delegate = std::make_shared<Responder>("delegate", "applicationDidFinishLaunching:", notes);
  application->setDelegate(delegate);
  platform.launch(*application, {.eventID = openApplicationEvent});
  EXPECT_EQ(notes, Lines{"delegate applicationDidFinishLaunching:"});
}

// Windows.

TEST_F(ApplicationTest, theNewestWindowHasTheKeys) {
  Window first("first", "");
  Window second("second", "");
  EXPECT_EQ(application->keyWindow(), nullptr);
  application->addWindow(first);
  application->addWindow(second);
  EXPECT_EQ(application->windows(), (std::vector<Window*>{&first, &second}));
  EXPECT_EQ(application->keyWindow(), &second);
  application->setKeyWindow(first);
  application->removeWindow(first);
  EXPECT_EQ(application->keyWindow(), &second);
  application->removeWindow(second);
  EXPECT_EQ(application->keyWindow(), nullptr);
}

TEST_F(ApplicationTest, observersHearOfEachChangeOfTheWindows) {
  Window window("", "");
  std::vector<std::size_t> counts;
  auto subscription = application->observeWindows([&](Application& told) { counts.push_back(told.windows().size()); });
  application->addWindow(window);
  application->addWindow(window);
  application->removeWindow(window);
  application->removeWindow(window);
  EXPECT_EQ(counts, (std::vector<std::size_t>{1, 0}));
  subscription.invalidate();
  application->addWindow(window);
  EXPECT_EQ(counts.size(), 2U);
}

TEST_F(ApplicationTest, anObserverMayHearOfTheWindowsAsTheyAre) {
  Window window("", "");
  application->addWindow(window);
  std::vector<std::size_t> counts;
  const auto subscription = application->observeWindows(
      [&](Application& told) { counts.push_back(told.windows().size()); }, Application::Observation::initialToo);
  EXPECT_EQ(counts, std::vector<std::size_t>{1});
}

// The one of its process.

TEST_F(ApplicationTest, theLastOneCreatedIsShared) {
  EXPECT_EQ(Application::shared(), application.get());
  auto another = Application::create(platform);
  EXPECT_EQ(Application::shared(), another.get());
  application.reset();
  EXPECT_EQ(Application::shared(), another.get());
  another.reset();
  EXPECT_EQ(Application::shared(), nullptr);
}

TEST_F(ApplicationTest, aSingleObjectIsMadeOnce) {
  int made = 0;
  const auto make = [&] { return std::make_shared<int>(++made); };
  EXPECT_EQ(application->single<int>(make), application->single<int>(make));
  EXPECT_EQ(made, 1);
}

}  // namespace
}  // namespace tarnwell::kit
