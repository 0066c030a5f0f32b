#include <gtest/gtest.h>

#include <algorithm>

#include "app/Product.h"
#include "fixtures/DockCommands.h"
#include "fixtures/StandardOutputCapture.h"
#include "kit/Responder.h"
#include "kit/application/Platform.h"
#include "kit/control/Window.h"
#include "scenarios/Tarnwell.h"

namespace tarnwell::scenarios {
namespace {

using Lines = std::vector<std::string>;

constexpr int dockTab = 0;
constexpr int generalTab = 1;
constexpr const char* check = "Check for Updates…";
constexpr const char* checks = "Check for updates automatically";
constexpr const char* downloads = "Download updates automatically";
constexpr const char* settingsWindow = view::SceneRunner::settingsWindowIdentifier;

// Start.

TEST(ApplicationScenarios, theLauncherOpensTheSettingsAndIsGone) {
  Tarnwell tarnwell;
  EXPECT_EQ(tarnwell.windowLists(), (std::vector<Lines>{{"settingslauncher"}, {}, {settingsWindow}}));
  EXPECT_TRUE(tarnwell.settingsAreOpen());
  EXPECT_EQ(tarnwell.chosenTab(), "Dock");
  EXPECT_EQ(tarnwell.reads(), fixtures::readCommands());
  EXPECT_EQ(tarnwell.asked(), Lines{});
}

// The settings window.

TEST(ApplicationScenarios, theTabsAreDockAndGeneral) {
  const Tarnwell tarnwell;
  EXPECT_EQ(tarnwell.tabs(), (Lines{"Dock", "General"}));
}

TEST(ApplicationScenarios, theWindowIs600WideAndNeverHigherThan700) {
  Tarnwell tarnwell;
  const kit::Size dock = tarnwell.system().sizeOf(tarnwell.settings());
  tarnwell.chooseTab(generalTab);
  const kit::Size general = tarnwell.system().sizeOf(tarnwell.settings());
  EXPECT_EQ(dock.width, 600);
  EXPECT_EQ(general.width, 600);
  EXPECT_LE(dock.height, 700);
  EXPECT_LT(general.height, dock.height);
  tarnwell.chooseTab(dockTab);
  EXPECT_EQ(tarnwell.system().sizeOf(tarnwell.settings()), dock);
}

TEST(ApplicationScenarios, generalAndBackReadsTheDockAgainAndGivesUpEdits) {
  Tarnwell tarnwell;
  tarnwell.press("Dim hidden apps");
  EXPECT_EQ(tarnwell.value("Dim hidden apps"), "on");
  EXPECT_TRUE(tarnwell.isEnabled("Save"));
  tarnwell.reads();
  tarnwell.chooseTab(generalTab);
  EXPECT_EQ(tarnwell.chosenTab(), "General");
  EXPECT_TRUE(tarnwell.has(checks));
  EXPECT_FALSE(tarnwell.has("Save"));
  EXPECT_EQ(tarnwell.reads(), Lines{});
  tarnwell.chooseTab(dockTab);
  EXPECT_EQ(tarnwell.reads(), fixtures::readCommands());
  EXPECT_EQ(tarnwell.value("Dim hidden apps"), "off");
  EXPECT_FALSE(tarnwell.isEnabled("Save"));
}

TEST(ApplicationScenarios, closedOnGeneralItOpensOnTheDockTabFreshlyRead) {
  Tarnwell tarnwell;
  tarnwell.chooseTab(generalTab);
  tarnwell.reads();
  tarnwell.windowLists();
  tarnwell.system().closeWindow(tarnwell.settings());
  EXPECT_FALSE(tarnwell.settingsAreOpen());
  EXPECT_EQ(tarnwell.windowLists(), std::vector<Lines>{{}});
  EXPECT_EQ(tarnwell.reads(), Lines{});
  tarnwell.system().choose(System::icon, "Settings...");
  EXPECT_TRUE(tarnwell.settingsAreOpen());
  EXPECT_EQ(tarnwell.chosenTab(), "Dock");
  EXPECT_EQ(tarnwell.reads(), fixtures::readCommands());
}

TEST(ApplicationScenarios, settingsThatAreOpenStayAsTheyAre) {
  Tarnwell tarnwell;
  tarnwell.chooseTab(generalTab);
  tarnwell.reads();
  tarnwell.windowLists();
  tarnwell.system().choose("Tarnwell", "Settings…");
  tarnwell.system().choose("View", "Show settings window");
  tarnwell.system().choose(System::icon, "Settings...");
  tarnwell.system().pressCommand(',');
  EXPECT_EQ(tarnwell.chosenTab(), "General");
  EXPECT_EQ(tarnwell.reads(), Lines{});
  EXPECT_EQ(tarnwell.windowLists(), std::vector<Lines>{});
}

TEST(ApplicationScenarios, settingsThatAreOpenKeepWhatWasEdited) {
  Tarnwell tarnwell;
  tarnwell.press("Dim hidden apps");
  tarnwell.reads();
  tarnwell.system().choose(System::icon, "Settings...");
  EXPECT_EQ(tarnwell.value("Dim hidden apps"), "on");
  EXPECT_TRUE(tarnwell.isEnabled("Save"));
  EXPECT_EQ(tarnwell.reads(), Lines{});
}

TEST(ApplicationScenarios, aMinimizedWindowComesBackAsItWent) {
  Tarnwell tarnwell;
  tarnwell.press("Dim hidden apps");
  const auto minimizeAndBack = [&tarnwell] {
    tarnwell.reads();
    tarnwell.windowLists();
    tarnwell.system().choose("Window", "Minimize");
    tarnwell.system().choose(System::icon, "Settings...");
    EXPECT_TRUE(tarnwell.settingsAreOpen());
    EXPECT_EQ(tarnwell.reads(), Lines{});
    EXPECT_EQ(tarnwell.windowLists(), std::vector<Lines>{});
  };
  minimizeAndBack();
  EXPECT_EQ(tarnwell.value("Dim hidden apps"), "on");
  tarnwell.chooseTab(generalTab);
  minimizeAndBack();
  EXPECT_EQ(tarnwell.chosenTab(), "General");
}

TEST(ApplicationScenarios, eachShowingOfTheDockTabMakesItsTwoSlidersAnew) {
  const fixtures::StandardOutputCapture output;
  const auto tickMarkLines = [&output] {
    const std::string text = output.text();
    int lines = 0;
    for (auto at = text.find("Tick mark "); at != std::string::npos; at = text.find("Tick mark ", at + 1)) {
      ++lines;
    }
    return lines;
  };
  Tarnwell tarnwell;
  EXPECT_EQ(tickMarkLines(), 22);
  tarnwell.chooseTab(generalTab);
  EXPECT_EQ(tickMarkLines(), 22);
  tarnwell.chooseTab(dockTab);
  EXPECT_EQ(tickMarkLines(), 44);
  tarnwell.system().closeWindow(tarnwell.settings());
  tarnwell.system().choose(System::icon, "Settings...");
  EXPECT_EQ(tickMarkLines(), 66);
}

// General.

TEST(ApplicationScenarios, generalShowsWhatTheUpdaterHoldsAtEachShowing) {
  Tarnwell tarnwell;
  tarnwell.system().updater().preferences() = {.checks = true, .downloads = false};
  tarnwell.chooseTab(generalTab);
  EXPECT_EQ(tarnwell.value(checks), "on");
  EXPECT_EQ(tarnwell.value(downloads), "off");
  EXPECT_EQ(tarnwell.asked(), Lines{"updater: automaticallyChecksForUpdates = 1"});
  tarnwell.chooseTab(dockTab);
  tarnwell.system().updater().preferences() = {.checks = false, .downloads = true};
  tarnwell.chooseTab(generalTab);
  EXPECT_EQ(tarnwell.value(checks), "off");
  EXPECT_EQ(tarnwell.value(downloads), "on");
  EXPECT_EQ(tarnwell.asked(), Lines{"updater: automaticallyDownloadsUpdates = 1"});
}

TEST(ApplicationScenarios, oneClickWritesOneValueAndLeavesTheOtherAlone) {
  Tarnwell tarnwell;
  tarnwell.chooseTab(generalTab);
  tarnwell.press(downloads);
  EXPECT_EQ(tarnwell.asked(), Lines{"updater: automaticallyDownloadsUpdates = 1"});
  EXPECT_EQ(tarnwell.value(checks), "off");
  tarnwell.press(checks);
  EXPECT_EQ(tarnwell.asked(), Lines{"updater: automaticallyChecksForUpdates = 1"});
  tarnwell.press(checks);
  EXPECT_EQ(tarnwell.asked(), Lines{"updater: automaticallyChecksForUpdates = 0"});
  EXPECT_EQ(tarnwell.value(downloads), "on");
  EXPECT_TRUE(tarnwell.isEnabled(downloads));
}

TEST(ApplicationScenarios, launchAtLoginFollowsTheSystem) {
  Tarnwell tarnwell;
  tarnwell.system().loginItem().setStatus(kit::LoginItem::Status::enabled);
  tarnwell.chooseTab(generalTab);
  EXPECT_EQ(tarnwell.value("Launch at login"), "on");
  tarnwell.press("Launch at login");
  EXPECT_EQ(tarnwell.value("Launch at login"), "off");
  tarnwell.press("Launch at login");
  EXPECT_EQ(tarnwell.value("Launch at login"), "on");
  EXPECT_EQ(tarnwell.asked(), (Lines{"login item: unregister", "login item: register"}));
}

TEST(ApplicationScenarios, aLoginItemThatTheSystemRefusesSpringsBack) {
  Tarnwell tarnwell;
  tarnwell.system().loginItem().answers().registerFailure = "no";
  tarnwell.chooseTab(generalTab);
  tarnwell.press("Launch at login");
  EXPECT_EQ(tarnwell.value("Launch at login"), "off");
  EXPECT_EQ(tarnwell.asked(), Lines{"login item: register"});
}

// Menus.

TEST(ApplicationScenarios, theMenusReadAsDesigned) {
  Tarnwell tarnwell;
  System& system = tarnwell.system();
  const Lines hiding = {"Services", "-", "Hide Tarnwell", "Hide Others", "Show All", "-"};
  Lines tarnwellMenu = {"About Tarnwell", "-", "Settings…", "-", "Quit Tarnwell"};
  if (system.platform().hidesApplications()) {
    tarnwellMenu.insert(tarnwellMenu.end() - 1, hiding.begin(), hiding.end());
  }
  EXPECT_EQ(system.entries("Tarnwell"), tarnwellMenu);
  EXPECT_EQ(system.entries("File"), Lines{"Close"});
  EXPECT_EQ(system.entries("Edit"),
            (Lines{"(Undo)", "(Redo)", "-", "(Cut)", "(Copy)", "(Paste)", "(Delete)", "(Select All)"}));
  EXPECT_EQ(system.entries("View"), Lines{"Show settings window"});
  EXPECT_EQ(system.entries("Window"), Lines{"Minimize"});
  EXPECT_EQ(system.entries("Help"), (Lines{"Tarnwell Help", "-", check, "Send feedback...",
                                           "Support this project \u2665\uFE0F", "-", "About Tarnwell"}));
  EXPECT_EQ(system.entries(System::icon), (Lines{"Settings...", "-", "About Tarnwell", check, "Send feedback...",
                                                 "Support this project \u2665\uFE0F", "-", "Quit Tarnwell"}));
}

TEST(ApplicationScenarios, linksOpenTheirPages) {
  Tarnwell tarnwell;
  tarnwell.system().choose("Help", "Tarnwell Help");
  EXPECT_EQ(tarnwell.system().openedAddress(), app::product().page("/help"));
  for (const std::string menu : {"Help", System::icon}) {
    tarnwell.system().choose(menu, "Send feedback...");
    EXPECT_EQ(tarnwell.system().openedAddress(), app::product().page("/feedback"));
    tarnwell.system().choose(menu, "Support this project \u2665\uFE0F");
    EXPECT_EQ(tarnwell.system().openedAddress(), app::product().page("/donate"));
  }
}

TEST(ApplicationScenarios, aboutIsShownFromItsThreePlaces) {
  Tarnwell tarnwell;
  for (const std::string menu : {"Tarnwell", "Help", System::icon}) {
    EXPECT_FALSE(tarnwell.system().aboutIsShown()) << menu;
    tarnwell.system().choose(menu, "About Tarnwell");
    EXPECT_TRUE(tarnwell.system().aboutIsShown()) << menu;
    tarnwell.system().closeAbout();
  }
}

TEST(ApplicationScenarios, aboutIsShownWithTheSettingsClosed) {
  Tarnwell tarnwell;
  tarnwell.system().closeWindow(tarnwell.settings());
  tarnwell.system().choose(System::icon, "About Tarnwell");
  EXPECT_TRUE(tarnwell.system().aboutIsShown());
  EXPECT_FALSE(tarnwell.settingsAreOpen());
}

TEST(ApplicationScenarios, aCheckForUpdatesStartsFromItsThreePlaces) {
  Tarnwell tarnwell;
  tarnwell.system().choose("Help", check);
  EXPECT_EQ(tarnwell.asked(), Lines{"updater: checkForUpdates"});
  tarnwell.system().choose(System::icon, check);
  EXPECT_EQ(tarnwell.asked(), Lines{"updater: checkForUpdates"});
  tarnwell.chooseTab(generalTab);
  tarnwell.press(check);
  EXPECT_EQ(tarnwell.asked(), Lines{"updater: checkForUpdates"});
}

/// Where a check can be started: in the menus by their entries, on the General tab by its button.
std::vector<bool> offersOfACheck(Tarnwell& tarnwell) {
  const auto offers = [&tarnwell](const std::string& menu) {
    const Lines entries = tarnwell.system().entries(menu);
    return std::ranges::find(entries, check) != entries.end();
  };
  return {offers("Help"), offers(System::icon), tarnwell.isEnabled(check)};
}

TEST(ApplicationScenarios, noCheckCanBeStartedWhileOneRuns) {
  Tarnwell tarnwell;
  tarnwell.chooseTab(generalTab);
  EXPECT_EQ(offersOfACheck(tarnwell), (std::vector{true, true, true}));
  tarnwell.setCanCheckForUpdates(false);
  EXPECT_EQ(offersOfACheck(tarnwell), (std::vector{false, false, false}));
  tarnwell.press(check);
  EXPECT_EQ(tarnwell.asked(), Lines{});
  tarnwell.setCanCheckForUpdates(true);
  EXPECT_EQ(offersOfACheck(tarnwell), (std::vector{true, true, true}));
}

TEST(ApplicationScenarios, aButtonThatIsShownDuringACheckStartsDisabled) {
  Tarnwell tarnwell;
  tarnwell.setCanCheckForUpdates(false);
  tarnwell.chooseTab(generalTab);
  EXPECT_FALSE(tarnwell.isEnabled(check));
}

// Keys and the end.

TEST(ApplicationScenarios, commandWClosesTheWindowAndTheApplicationGoesOn) {
  Tarnwell tarnwell;
  tarnwell.system().pressCommand('w');
  EXPECT_FALSE(tarnwell.settingsAreOpen());
  tarnwell.system().choose(System::icon, "Settings...");
  EXPECT_TRUE(tarnwell.settingsAreOpen());
}

TEST(ApplicationScenarios, startedOnceMoreItShowsItsSettings) {
  Tarnwell tarnwell;
  tarnwell.system().closeWindow(tarnwell.settings());
  tarnwell.system().reopen();
  EXPECT_TRUE(tarnwell.settingsAreOpen());
  tarnwell.chooseTab(generalTab);
  tarnwell.system().reopen();
  EXPECT_EQ(tarnwell.chosenTab(), "General");
}

/// What the delegate of an application that ends by `action` hears of that.
Lines heardOfAnEndBy(const std::function<void(System&)>& action) {
  Lines heard;
  Tarnwell tarnwell;
  const auto delegate = std::make_shared<kit::Responder>("delegate", kit::selectors::applicationWillTerminate, heard);
  tarnwell.application().setDelegate(delegate);
  EXPECT_TRUE(tarnwell.system().endsBy([&] { action(tarnwell.system()); }));
  return heard;
}

TEST(ApplicationScenarios, anEndIsToldOnceAskedForOrNot) {
  const Lines once = {"delegate applicationWillTerminate:"};
  EXPECT_EQ(heardOfAnEndBy([](System& system) { system.pressCommand('q'); }), once);
  EXPECT_EQ(heardOfAnEndBy([](System& system) { system.end(); }), once);
}

TEST(ApplicationScenarios, quitOfEachMenuEndsTheApplication) {
  for (const std::string menu : {"Tarnwell", System::icon}) {
    Tarnwell tarnwell;
    EXPECT_TRUE(tarnwell.system().endsBy([&] { tarnwell.system().choose(menu, "Quit Tarnwell"); })) << menu;
  }
}

}  // namespace
}  // namespace tarnwell::scenarios
