#include "statusmenu/AppDelegate.h"

#include <gtest/gtest.h>

#include <tuple>

#include "fixtures/StandardOutputCapture.h"
#include "host/headless/HeadlessPlatform.h"
#include "kit/menus/Menu.h"
#include "kit/turn/ClassRegistry.h"

namespace tarnwell::statusmenu {
namespace {

using kit::Event;
using Lines = std::vector<std::string>;

class AppDelegateTest : public testing::Test {
 protected:
  void install() {
    delegate = std::make_shared<AppDelegate>(*application);
    application->setDelegate(delegate);
    platform.launch(*application, {.eventID = kit::openApplicationEvent});
    platform.journal().clear();
  }

  kit::StatusItem& icon() { return *platform.statusItems().at(0); }

  /// What is printed while the user clicks the icon with the right button and does this in the menu.
  std::string rightClick(const host_headless::MenuScript& script) {
    platform.setMenuScript(script);
    const fixtures::StandardOutputCapture output;
    icon().mouseUp(Event::Type::rightMouseUp);
    return output.text();
  }

  Lines journalWithoutMenu() {
    Lines lines = platform.journal().lines();
    std::erase_if(lines, [](const std::string& line) { return line.find(": menu ") != std::string::npos; });
    return lines;
  }

  host_headless::HeadlessPlatform platform;
  std::shared_ptr<kit::Application> application = kit::Application::create(platform);
  std::shared_ptr<AppDelegate> delegate;
};

TEST_F(AppDelegateTest, nothingIsThereBeforeTheLaunch) {
  const AppDelegate fresh(*application);
  EXPECT_EQ(fresh.statusItem, nullptr);
  EXPECT_EQ(platform.statusItems().size(), 0U);
}

TEST_F(AppDelegateTest, theLaunchPutsAStarIntoTheStatusBar) {
  install();
  ASSERT_EQ(platform.statusItems(), std::vector<kit::StatusItem*>{delegate->statusItem.get()});
  EXPECT_EQ(icon().length(), -1);
  EXPECT_EQ(icon().menu(), nullptr);
  const auto button = icon().button();
  EXPECT_EQ(button->image(), (kit::StatusBarButton::Image{.symbol = "star"}));
  EXPECT_EQ(button->action(), "handleClick:");
  EXPECT_EQ(button->target(), delegate);
  EXPECT_EQ(button->mask(), 20U);
}

TEST_F(AppDelegateTest, anIconWithoutAButtonStaysAsItIs) {
  platform.traits().hasStatusButtons = false;
  install();
  ASSERT_NE(delegate->statusItem, nullptr);
  EXPECT_EQ(delegate->statusItem->button(), nullptr);
  EXPECT_EQ(platform.journal().lines(), Lines{});
}

TEST_F(AppDelegateTest, aLeftClickPrintsLAndOpensNothing) {
  install();
  const fixtures::StandardOutputCapture output;
  icon().mouseUp(Event::Type::leftMouseUp);
  EXPECT_EQ(output.text(), "L\n");
  EXPECT_EQ(platform.journal().lines(), Lines{});
}

TEST_F(AppDelegateTest, aRightClickPrintsRAndShowsTheMenu) {
  install();
  Lines titles;
  EXPECT_EQ(rightClick([&](auto& menu) { titles = menu.titles(); }), "R\n");
  EXPECT_EQ(titles, (Lines{"Toggle Dock Autohide", "Toggle Scroll to Exposé", "-", "Settings...", "-", "Quit"}));
  EXPECT_EQ(platform.journal().lines(), (Lines{"status item \"\": menu attached", "status item \"\": menu opens",
                                               "status item \"\": menu closes", "status item \"\": menu detached"}));
}

TEST_F(AppDelegateTest, entriesHaveNoTargetAndOnlyQuitHasAKey) {
  install();
  using Row = std::tuple<std::string, std::string, bool>;
  std::vector<Row> rows;
  rightClick([&](auto&) {
    for (const auto& item : icon().menu()->items()) {
      EXPECT_EQ(item->target(), nullptr);
      rows.emplace_back(item->action(), item->keyEquivalent().key, application->responders().canChoose(*item));
    }
  });
  EXPECT_EQ(rows, (std::vector<Row>{{"itemClicked:", "", true},
                                    {"itemClicked:", "", true},
                                    {"", "", false},
                                    {"openSettingsInSonoma", "", true},
                                    {"", "", false},
                                    {"terminate:", "q", true}}));
}

TEST_F(AppDelegateTest, theMenuIsGoneOnceItHasClosed) {
  install();
  std::weak_ptr<kit::Menu> shown;
  rightClick([&](auto&) { shown = icon().menu(); });
  EXPECT_EQ(icon().menu(), nullptr);
  EXPECT_TRUE(shown.expired());
}

TEST_F(AppDelegateTest, eachRightClickBuildsAnotherMenu) {
  install();
  std::vector<std::shared_ptr<kit::Menu>> shown;
  for (int i = 0; i < 2; ++i) {
    rightClick([&](auto&) { shown.push_back(icon().menu()); });
  }
  EXPECT_NE(shown.at(0), shown.at(1));
}

TEST_F(AppDelegateTest, aLeftClickAfterTheMenuStillOpensNothing) {
  install();
  rightClick({});
  const fixtures::StandardOutputCapture output;
  icon().mouseUp(Event::Type::leftMouseUp);
  EXPECT_EQ(output.text(), "L\n");
}

TEST_F(AppDelegateTest, theToggleEntriesOnlyPrint) {
  install();
  for (const std::string title : {"Toggle Dock Autohide", "Toggle Scroll to Exposé"}) {
    EXPECT_EQ(rightClick([&](auto& menu) { menu.choose(title); }), "R\n" + title + " clicked\n");
  }
  EXPECT_EQ(journalWithoutMenu(), Lines{});
  EXPECT_TRUE(application->events().isEmpty());
}

TEST_F(AppDelegateTest, quitEndsTheApplication) {
  install();
  rightClick([](auto& menu) { menu.choose("Quit"); });
  EXPECT_EQ(journalWithoutMenu(), Lines{"terminate"});
}

TEST_F(AppDelegateTest, commandQInTheOpenMenuChoosesQuit) {
  install();
  int chosenInMainMenu = 0;
  const auto other = kit::MenuItem::create("Another", "", "q");
  other->setHandler([&] { ++chosenInMainMenu; });
  application->mainMenu().addItem(other);
  rightClick([](auto& menu) {
    EXPECT_TRUE(menu.press({.charactersIgnoringModifiers = "q", .modifierFlags = kit::commandFlag}));
  });
  EXPECT_EQ(journalWithoutMenu(), Lines{"terminate"});
  EXPECT_EQ(chosenInMainMenu, 0);
}

TEST_F(AppDelegateTest, settingsPostsTheShortcutBehindWhatWaits) {
  install();
  const Event waiting = {.type = Event::Type::keyDown, .charactersIgnoringModifiers = "x"};
  application->events().post(waiting);
  rightClick([](auto& menu) { menu.choose("Settings..."); });
  EXPECT_EQ(journalWithoutMenu(), Lines{"activate"});
  const Event shortcut = {.type = Event::Type::keyDown,
                          .location = {},
                          .modifierFlags = 0x100000,
                          .timestamp = 0,
                          .windowNumber = 0,
                          .characters = "",
                          .charactersIgnoringModifiers = ",",
                          .isARepeat = false,
                          .keyCode = 43};
  EXPECT_EQ(application->events().posted(), (std::deque<Event>{waiting, shortcut}));
}

TEST_F(AppDelegateTest, theShortcutReachesTheSettingsEntryOfTheMainMenu) {
  install();
  const auto settings = kit::MenuItem::create("Settings…", "", ",");
  settings->setHandler([this] { platform.journal().note("settings open"); });
  application->mainMenu().addItem(settings);
  rightClick([](auto& menu) { menu.choose("Settings..."); });
  platform.runUntilIdle(*application);
  EXPECT_EQ(journalWithoutMenu(), (Lines{"activate", "settings open"}));
}

TEST_F(AppDelegateTest, settingsDoesNothingWhereEventsCannotBeMade) {
  install();
  platform.traits().makesEvents = false;
  rightClick([](auto& menu) { menu.choose("Settings..."); });
  EXPECT_EQ(journalWithoutMenu(), Lines{"activate"});
  EXPECT_TRUE(application->events().isEmpty());
}

TEST_F(AppDelegateTest, holdsTheDefaultOpenSettingsAction) {
  install();
  EXPECT_EQ(delegate->openSettingsLegacy.get(), settingsaccess::OpenSettingsKey::initial());
}

TEST_F(AppDelegateTest, theIconGoesWithTheDelegate) {
  install();
  application->setDelegate(nullptr);
  delegate.reset();
  EXPECT_EQ(platform.statusItems().size(), 0U);
}

TEST_F(AppDelegateTest, itsNameMakesOne) {
  const auto made = kit::ClassRegistry::make("AppDelegate", *application);
  EXPECT_NE(std::dynamic_pointer_cast<AppDelegate>(made), nullptr);
  EXPECT_EQ(platform.statusItems().size(), 0U);
}

TEST_F(AppDelegateTest, respondsToItsSelectorsAlone) {
  const AppDelegate fresh(*application);
  for (const char* selector :
       {"applicationDidFinishLaunching:", "handleClick:", "itemClicked:", "openSettingsInSonoma"}) {
    EXPECT_TRUE(fresh.respondsToSelector(selector)) << selector;
  }
  for (const char* selector : {"terminate:", "showMenu", "openSettingsInSonoma:", ""}) {
    EXPECT_FALSE(fresh.respondsToSelector(selector)) << selector;
  }
}

using AppDelegateDeathTest = AppDelegateTest;

TEST_F(AppDelegateDeathTest, aClickWithoutAnEventIsAFault) {
  install();
  EXPECT_DEATH(delegate->handleClick(), "tarnwell: the status item was clicked without a current event");
}

TEST_F(AppDelegateDeathTest, aMenuWithoutAnIconIsAFault) {
  const auto fresh = std::make_shared<AppDelegate>(*application);
  const Event event = {.type = Event::Type::rightMouseUp};
  EXPECT_DEATH(application->events().send(event, [&] { fresh->handleClick(); }),
               "tarnwell: there is no status item to show a menu at");
}

}  // namespace
}  // namespace tarnwell::statusmenu
