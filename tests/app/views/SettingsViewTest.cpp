#include <gtest/gtest.h>

#include <algorithm>

#include "app/HeadlessApplication.h"
#include "app/views/SettingsView.h"
#include "fixtures/DockCommands.h"
#include "fixtures/DockTabHeight.h"
#include "fixtures/ExpectDump.h"
#include "kit/control/Window.h"
#include "kit/controls/buttons/Toggle.h"
#include "kit/controls/containers/ScrollArea.h"
#include "view/scenes/HostedWindow.h"

namespace tarnwell::app {
namespace {

using Lines = std::vector<std::string>;

// The tabs stand above the form.
constexpr double dockPageHeight = fixtures::dockTabHeight + 60;

TEST(SettingsView, hasTwoTabsAndStartsOnTheDock) {
  HeadlessApplication application;
  application.start();
  EXPECT_NE(application.settingsPicture().find("TabBar \"Tabs\" *\"Dock\" dock.rectangle \"General\" gear\n"),
            std::string::npos);
}

TEST(SettingsView, bothTabsAre600WideAndEachAsHighAsItsContent) {
  HeadlessApplication application;
  application.start();
  EXPECT_EQ(application.settings().contentSize(), (kit::Size{.width = 600, .height = dockPageHeight}));
  application.chooseTab(1);
  EXPECT_EQ(application.settings().contentSize(), (kit::Size{.width = 600, .height = 268}));
}

TEST(SettingsView, onALowScreenTheTabsStayAndThePageScrolls) {
  HeadlessApplication application;
  dynamic_cast<host_headless::HeadlessHost&>(application.platform().host()).setAvailableHeight(400);
  application.start();
  EXPECT_EQ(application.settings().contentSize(), (kit::Size{.width = 600, .height = 400}));
  EXPECT_EQ(application.control("Tabs").frame().y, 0);
  const auto& controls = application.scenes().settingsWindow()->tree().controls();
  const auto isPage = [](const kit::Control* control) {
    return dynamic_cast<const kit::ScrollArea*>(control) != nullptr;
  };
  const auto page = std::ranges::find_if(controls, isPage);
  ASSERT_NE(page, controls.end());
  EXPECT_EQ((*page)->frame().bottom(), 400);
}

TEST(SettingsView, aMenuBarInTheWindowCountsAmongThe700) {
  HeadlessApplication application;
  auto& host = dynamic_cast<host_headless::HeadlessHost&>(application.platform().host());
  host.setChromeHeight(44);
  application.start();
  EXPECT_EQ(application.settings().contentSize(), (kit::Size{.width = 600, .height = dockPageHeight}));
  application.settings().performClose();
  application.settle();
  host.setChromeHeight(100);
  application.choose("View", "Show settings window");
  EXPECT_EQ(application.settings().contentSize(), (kit::Size{.width = 600, .height = 600}));
  application.chooseTab(1);
  EXPECT_EQ(application.settings().contentSize(), (kit::Size{.width = 600, .height = 268}));
}

TEST(SettingsView, comingBackFromGeneralReadsTheDockAgain) {
  HeadlessApplication application;
  application.start();
  application.reads();
  application.chooseTab(1);
  EXPECT_EQ(application.reads(), Lines{});
  application.chooseTab(0);
  EXPECT_EQ(application.reads(), fixtures::readCommands());
}

TEST(SettingsView, leavingTheDockTabGivesUpItsEdits) {
  HeadlessApplication application;
  application.start();
  dynamic_cast<kit::Toggle&>(application.control("Dim hidden apps")).press();
  application.chooseTab(1);
  application.chooseTab(0);
  EXPECT_FALSE(dynamic_cast<kit::Toggle&>(application.control("Dim hidden apps")).isOn());
}

TEST(SettingsView, closingReturnsToTheDockTabAndReadsNothing) {
  HeadlessApplication application;
  application.start();
  application.chooseTab(1);
  application.reads();
  application.settings().performClose();
  application.settle();
  EXPECT_EQ(application.reads(), Lines{});
  EXPECT_NE(application.settingsPicture().find("*\"Dock\""), std::string::npos);
  application.chooseFromExtra("Settings...");
  EXPECT_EQ(application.reads(), fixtures::readCommands());
}

TEST(SettingsView, closedAndOpenedInOneEventItStartsAfreshAndReadsTheDockOnce) {
  HeadlessApplication application;
  application.start();
  dynamic_cast<kit::Toggle&>(application.control("Dim hidden apps")).press();
  application.reads();
  application.application().turn().perform([&application] {
    application.settings().performClose();
    application.scenes().openSettings();
    application.settings().performClose();
    application.scenes().openSettings();
  });
  EXPECT_EQ(application.reads(), fixtures::readCommands());
  EXPECT_TRUE(application.settingsAreOpen());
  EXPECT_FALSE(dynamic_cast<kit::Toggle&>(application.control("Dim hidden apps")).isOn());
}

TEST(SettingsView, closingAnnouncesItWhileTheWindowStands) {
  HeadlessApplication application;
  application.start();
  Lines seen;
  const auto subscription = application.application().notificationCenter().addObserver(
      kit::windowWillCloseNotification, [&seen](const kit::Notification& notification) {
        const auto* window = dynamic_cast<const kit::Window*>(notification.object);
        seen.push_back(window->identifier() + (window->isVisible() ? " visible" : " hidden"));
      });
  application.settings().performClose();
  EXPECT_EQ(seen, (Lines{"com_apple_SwiftUI_Settings_window visible"}));
  EXPECT_TRUE(application.application().windows().all().empty());
}

TEST(SettingsView, theGeneralTabReadsAsDesigned) {
  HeadlessApplication application;
  application.start();
  application.chooseTab(1);
  fixtures::expectDump("app/GeneralTab.dump", application.settingsPicture());
}

/// Notes what it hears of its window.
class ClosingWitness final : public kit::Object {
 public:
  ClosingWitness() {
    respondTo("windowWillClose:", [this](kit::Object* sender) {
      const auto& window = dynamic_cast<kit::Window&>(*sender);
      heard.push_back(window.identifier() + (window.isVisible() ? " visible" : " hidden"));
    });
  }

  Lines heard = {};
};

TEST(SettingsView, theWindowsDelegateHearsOfTheClosingToo) {
  HeadlessApplication application;
  application.start();
  const auto witness = std::make_shared<ClosingWitness>();
  application.settings().setDelegate(witness);
  application.settings().performClose();
  EXPECT_EQ(witness->heard, Lines{"com_apple_SwiftUI_Settings_window visible"});
}

TEST(SettingsViewDeathTest, endsTheProcessWithoutAnUpdater) {
  host_headless::HeadlessPlatform platform;
  const auto application = kit::Application::create(platform);
  EXPECT_DEATH(view::HostedWindow(application->turn(), platform.host(), {.view = SettingsView{}}),
               "No ObservableObject of type UpdaterEnv found");
}

}  // namespace
}  // namespace tarnwell::app
