#include "kit/application/ApplicationTest.h"

#include "kit/Responder.h"

namespace tarnwell::kit {
namespace {

TEST_F(ApplicationTest, theApplicationComesBeforeItsDelegate) {
  const auto delegate = std::make_shared<Responder>("delegate", "terminate:", notes);
  application->setDelegate(delegate);
  application->responders().sendAction("terminate:", nullptr, nullptr);
  EXPECT_EQ(notes, Lines{});
  EXPECT_EQ(platform.journal().lines(), Lines{"terminate"});
}

TEST_F(ApplicationTest, aDelegateIsHeldWeakly) {
  auto delegate = std::make_shared<Responder>("delegate", "act:", notes);
  application->setDelegate(delegate);
  delegate.reset();
  EXPECT_EQ(application->delegate(), nullptr);
  EXPECT_FALSE(application->responders().sendAction("act:", nullptr, nullptr));
}

// What the platform does.

TEST_F(ApplicationTest, aboutReachesThePlatform) {
  application->responders().sendAction("orderFrontStandardAboutPanel:", nullptr, nullptr);
  EXPECT_EQ(platform.journal().lines(), Lines{"about panel"});
}

TEST_F(ApplicationTest, theDelegateHearsOfTheEndOnceFromThePlatform) {
  const auto delegate = std::make_shared<Responder>("delegate", "applicationWillTerminate:", notes);
  application->setDelegate(delegate);
  application->perform("terminate:", nullptr);
  EXPECT_TRUE(platform.hasTerminated());
  platform.end(*application);
  EXPECT_EQ(notes, Lines{"delegate applicationWillTerminate:"});
}

TEST_F(ApplicationTest, theDelegateHearsOfAnEndThatNoneAskedFor) {
  const auto delegate = std::make_shared<Responder>("delegate", "applicationWillTerminate:", notes);
  application->setDelegate(delegate);
  platform.end(*application);
  EXPECT_EQ(notes, Lines{"delegate applicationWillTerminate:"});
  EXPECT_EQ(platform.journal().lines(), Lines{});
}

TEST_F(ApplicationTest, noTurnRunsAfterTheEnd) {
  application->events().async([this] { notes.emplace_back("work"); });
  application->perform("terminate:", nullptr);
  platform.runUntilIdle(*application);
  EXPECT_EQ(notes, Lines{});
}

TEST_F(ApplicationTest, theDelegateHearsOfTheLaunch) {
  const auto delegate = std::make_shared<Responder>("delegate", "applicationDidFinishLaunching:", notes);
  application->setDelegate(delegate);
  platform.launch(*application, {.eventID = openApplicationEvent});
  EXPECT_EQ(notes, Lines{"delegate applicationDidFinishLaunching:"});
}

TEST_F(ApplicationTest, aFurtherStartIsPosted) {
  const auto subscription = application->notificationCenter().addObserver(
      reopenNotification, [this](const Notification& notification) { notes.push_back(notification.name); });
  application->reopen();
  EXPECT_EQ(notes, Lines{reopenNotification});
}

// The one of its process.

TEST_F(ApplicationTest, theLastOneCreatedIsShared) {
  EXPECT_EQ(&Application::shared(), application.get());
  auto another = Application::create(platform);
  EXPECT_EQ(&Application::shared(), another.get());
  application.reset();
  EXPECT_EQ(&Application::shared(), another.get());
  another.reset();
  EXPECT_FALSE(Application::isThere());
}

TEST_F(ApplicationTest, aSingleObjectIsMadeOnce) {
  int made = 0;
  const auto make = [&] { return std::make_shared<int>(++made); };
  EXPECT_EQ(application->single<int>(make), application->single<int>(make));
  EXPECT_EQ(made, 1);
}

}  // namespace
}  // namespace tarnwell::kit
