#include "app/AppDelegate2.h"

#include <gtest/gtest.h>

#include "app/Item.h"
#include "fixtures/StandardOutputCapture.h"
#include "host/headless/HeadlessPlatform.h"
#include "kit/control/Window.h"

namespace tarnwell::app {
namespace {

constexpr const char* watched = "com.apple.preferences.window";

class AppDelegate2Test : public testing::Test {
 protected:
  ~AppDelegate2Test() override { application->setDelegate(nullptr); }

  void install() {
    application->setDelegate(delegate);
    platform.launch(*application, {.eventID = kit::openApplicationEvent});
  }

  host_headless::HeadlessPlatform platform;
  std::shared_ptr<kit::Application> application = kit::Application::create(platform);
  std::shared_ptr<AppDelegate2> delegate = std::make_shared<AppDelegate2>(*application);
  kit::Window plain{"", "Untitled"};
  kit::Window settings{watched, "Settings"};
};

TEST_F(AppDelegate2Test, doesNotObserveBeforeTheLaunch) {
  const fixtures::StandardOutputCapture output;
  application->windows().add(settings);
  EXPECT_FALSE(delegate->settingsWindowObserver.has_value());
  EXPECT_EQ(settings.delegate(), nullptr);
  EXPECT_EQ(output.text(), "");
}

TEST_F(AppDelegate2Test, theLaunchPrintsThePresentWindows) {
  const fixtures::StandardOutputCapture output;
  install();
  EXPECT_EQ(output.text(), "[]\n");
  EXPECT_TRUE(delegate->settingsWindowObserver.has_value());
}

TEST_F(AppDelegate2Test, theLaunchFindsASettingsWindowThatIsOpen) {
  application->windows().add(plain);
  application->windows().add(settings);
  const fixtures::StandardOutputCapture output;
  install();
  EXPECT_EQ(output.text(), "[<Window: \"Untitled\">, <Window: com.apple.preferences.window \"Settings\">]\n");
  EXPECT_EQ(settings.delegate(), delegate);
  EXPECT_EQ(plain.delegate(), nullptr);
}

TEST_F(AppDelegate2Test, eachChangeOfTheListIsPrinted) {
  const fixtures::StandardOutputCapture output;
  install();
  application->windows().add(plain);
  application->windows().add(plain);
  application->windows().remove(plain);
  application->windows().remove(plain);
  EXPECT_EQ(output.text(), "[]\n[<Window: \"Untitled\">]\n[]\n");
}

TEST_F(AppDelegate2Test, aSettingsWindowThatComesLaterGetsTheDelegate) {
  const fixtures::StandardOutputCapture output;
  install();
  application->windows().add(settings);
  EXPECT_EQ(settings.delegate(), delegate);
}

TEST_F(AppDelegate2Test, onlyTheFirstOfTwoGetsTheDelegate) {
  kit::Window second(watched, "Settings");
  const fixtures::StandardOutputCapture output;
  install();
  application->windows().add(settings);
  application->windows().add(second);
  EXPECT_EQ(settings.delegate(), delegate);
  EXPECT_EQ(second.delegate(), nullptr);
}

TEST_F(AppDelegate2Test, otherIdentifiersChangeNoDelegate) {
  kit::Window closeButOther("com_apple_SwiftUI_Settings_window", "Settings");
  kit::Window upper("COM.APPLE.PREFERENCES.WINDOW", "Settings");
  const fixtures::StandardOutputCapture output;
  install();
  for (kit::Window* window : {&plain, &closeButOther, &upper}) {
    application->windows().add(*window);
    EXPECT_EQ(window->delegate(), nullptr) << window->identifier();
  }
}

TEST_F(AppDelegate2Test, theWindowsDelegateIsHeldWeakly) {
  const fixtures::StandardOutputCapture output;
  install();
  application->windows().add(settings);
  delegate.reset();
  EXPECT_EQ(settings.delegate(), nullptr);
}

TEST_F(AppDelegate2Test, theObservationEndsWithTheDelegate) {
  const fixtures::StandardOutputCapture output;
  install();
  delegate.reset();
  application->windows().add(settings);
  EXPECT_EQ(output.text(), "[]\n");
}

TEST_F(AppDelegate2Test, anObservationThatOutlivesTheDelegateTakesTheDelegateAway) {
  const fixtures::StandardOutputCapture output;
  install();
  const kit::Subscription observation = std::move(*delegate->settingsWindowObserver);
  settings.setDelegate(application);
  delegate.reset();
  application->windows().add(settings);
  EXPECT_EQ(output.text(), "[]\n[<Window: com.apple.preferences.window \"Settings\">]\n");
  EXPECT_EQ(settings.delegate(), nullptr);
}

TEST_F(AppDelegate2Test, aSecondLaunchReplacesTheObservation) {
  const fixtures::StandardOutputCapture output;
  install();
  delegate->applicationDidFinishLaunching();
  application->windows().add(plain);
  EXPECT_EQ(output.text(), "[]\n[]\n[<Window: \"Untitled\">]\n");
}

TEST_F(AppDelegate2Test, terminationEndsTheObservationAndKeepsTheHandle) {
  const fixtures::StandardOutputCapture output;
  install();
  application->perform("terminate:", nullptr);
  application->windows().add(settings);
  EXPECT_EQ(output.text(), "[]\n");
  EXPECT_EQ(settings.delegate(), nullptr);
  EXPECT_TRUE(delegate->settingsWindowObserver.has_value());
  EXPECT_TRUE(platform.hasTerminated());
}

TEST_F(AppDelegate2Test, terminationBeforeTheLaunchDoesNothing) {
  application->setDelegate(delegate);
  application->perform("terminate:", nullptr);
  EXPECT_FALSE(delegate->settingsWindowObserver.has_value());
  EXPECT_TRUE(platform.hasTerminated());
}

TEST_F(AppDelegate2Test, onlyAWindowTitledSettingsIsReportedWhenItCloses) {
  struct Row {
    std::string title = {};
    std::string printed = {};
  };
  for (const Row& row : {Row{"Settings", "Settings window closed\n"}, Row{"settings", ""}, Row{"SETTINGS", ""},
                         Row{"Settings ", ""}, Row{"", ""}}) {
    kit::Window window("", row.title);
    const fixtures::StandardOutputCapture output;
    delegate->perform("windowWillClose:", &window);
    EXPECT_EQ(output.text(), row.printed) << row.title;
  }
}

TEST_F(AppDelegate2Test, aNotificationAboutNoWindowIsPassedOver) {
  const fixtures::StandardOutputCapture output;
  delegate->windowWillClose({.name = kit::windowWillCloseNotification, .object = nullptr});
  delegate->windowWillClose({.name = kit::windowWillCloseNotification, .object = application.get()});
  EXPECT_EQ(output.text(), "");
}

TEST_F(AppDelegate2Test, respondsToItsSelectorsAlone) {
  for (const char* selector : {"applicationDidFinishLaunching:", "windowWillClose:", "applicationWillTerminate:"}) {
    EXPECT_TRUE(delegate->respondsToSelector(selector)) << selector;
  }
  EXPECT_FALSE(delegate->respondsToSelector("terminate:"));
}

TEST(ItemTest, carriesItsDate) {
  const auto now = std::chrono::system_clock::now();
  EXPECT_EQ(Item{.timestamp = now}.timestamp, now);
}

}  // namespace
}  // namespace tarnwell::app
