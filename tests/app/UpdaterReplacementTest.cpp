#include <gtest/gtest.h>

#include "app/HeadlessApplication.h"
#include "kit/controls/buttons/Button.h"
#include "kit/controls/buttons/Toggle.h"

namespace tarnwell::app {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* checkTitle = "Check for Updates…";

/// Owns its updater, as a real one does, and tells of its end.
class OwningController final : public kit::UpdaterController {
 public:
  OwningController(
      host_headless::Journal& journal, bool canCheck, kit::Action ended = [] {})
      : updater_(journal), ended_(std::move(ended)) {
    updater_.setCanCheckForUpdates(canCheck);
  }
  OwningController(const OwningController&) = delete;
  OwningController& operator=(const OwningController&) = delete;
  ~OwningController() override { ended_(); }

  host_headless::HeadlessUpdater& updater() override { return updater_; }

 private:
  host_headless::HeadlessUpdater updater_;
  kit::Action ended_;
};

/// The application with its General tab on the screen.
class UpdaterReplacementTest : public testing::Test {
 protected:
  UpdaterReplacementTest() { application.start().chooseTab(1); }

  host_headless::HeadlessUpdater& replaceBy(std::unique_ptr<OwningController> controller) {
    auto& updater = controller->updater();
    application.updaterEnv().setUpdaterController(std::move(controller));
    return updater;
  }

  kit::Button& button() { return dynamic_cast<kit::Button&>(application.control(checkTitle)); }

  /// Of the tab, the Help menu and the status icon's menu, in this order.
  std::vector<bool> canBePressed() {
    const std::string disabledLine = std::string(checkTitle) + "  (disabled)";
    return {button().isEnabled(), application.mainMenuPicture().find(disabledLine) == std::string::npos,
            application.extraPicture().find(disabledLine) == std::string::npos};
  }

  host_headless::Journal journal;
  HeadlessApplication application;
};

const std::vector<bool> all = {true, true, true};
const std::vector<bool> none = {false, false, false};

TEST_F(UpdaterReplacementTest, whateverShowsTheUpdaterFollowsTheNewOne) {
  ASSERT_EQ(canBePressed(), all);
  auto& updater = replaceBy(std::make_unique<OwningController>(journal, false));
  EXPECT_EQ(canBePressed(), none);
  application.application().turn().perform([&] { updater.setCanCheckForUpdates(true); });
  EXPECT_EQ(canBePressed(), all);
  application.application().turn().perform([&] { application.platform().updater().setCanCheckForUpdates(false); });
  EXPECT_EQ(canBePressed(), all);
}

TEST_F(UpdaterReplacementTest, whateverUsesTheUpdaterAsksTheNewOne) {
  replaceBy(std::make_unique<OwningController>(journal, true));
  application.newMilestones();
  button().click();
  application.choose("Help", checkTitle);
  application.chooseFromExtra(checkTitle);
  for (const char* name : {"Check for updates automatically", "Download updates automatically"}) {
    dynamic_cast<kit::Toggle&>(application.control(name)).press();
  }
  EXPECT_EQ(journal.lines(),
            (Lines{"updater: checkForUpdates", "updater: checkForUpdates", "updater: checkForUpdates",
                   "updater: automaticallyChecksForUpdates = 1", "updater: automaticallyDownloadsUpdates = 1"}));
  for (const std::string& line : application.newMilestones()) {
    EXPECT_FALSE(line.starts_with("updater")) << line;
  }
}

TEST_F(UpdaterReplacementTest, theNextShowingOfTheTabReadsTheNewOne) {
  application.chooseTab(0);
  replaceBy(std::make_unique<OwningController>(journal, true)).preferences() = {.checks = true, .downloads = true};
  application.chooseTab(1);
  EXPECT_TRUE(dynamic_cast<kit::Toggle&>(application.control("Check for updates automatically")).isOn());
  EXPECT_TRUE(dynamic_cast<kit::Toggle&>(application.control("Download updates automatically")).isOn());
}

TEST_F(UpdaterReplacementTest, theOldControllerGoesOnceEveryViewHasTurnedToTheNewOne) {
  std::vector<bool> atTheEnd;
  replaceBy(std::make_unique<OwningController>(journal, true, [&] { atTheEnd = canBePressed(); }));
  ASSERT_EQ(canBePressed(), all);
  replaceBy(std::make_unique<OwningController>(journal, false));
  EXPECT_EQ(atTheEnd, none);
}

TEST_F(UpdaterReplacementTest, aReplacementWithinAnEventKeepsTheOldControllerToItsEnd) {
  bool ended = false;
  auto& old = replaceBy(std::make_unique<OwningController>(journal, true, [&ended] { ended = true; }));
  application.application().turn().perform([&] {
    replaceBy(std::make_unique<OwningController>(journal, true));
    EXPECT_FALSE(ended);
    old.checkForUpdates();
  });
  EXPECT_TRUE(ended);
}

}  // namespace
}  // namespace tarnwell::app
