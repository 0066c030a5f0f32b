#include "launchatlogin/LaunchAtLogin.h"

#include <gtest/gtest.h>

#include "host/headless/HeadlessPlatform.h"
#include "kit/application/Application.h"

namespace tarnwell::launchatlogin {
namespace {

using Lines = std::vector<std::string>;
using LogLines = std::vector<host_headless::HeadlessLog::Line>;
using kit::LoginItem;

class LaunchAtLoginTest : public testing::Test {
 protected:
  LogLines logged() { return platform.keptLog().lines(); }

  host_headless::HeadlessPlatform platform;
  std::shared_ptr<kit::Application> application = kit::Application::create(platform);
};

LogLines line(const std::string& message) {
  return {{.subsystem = "example.tarnwell.LaunchAtLogin", .category = "main", .message = message}};
}

TEST_F(LaunchAtLoginTest, onlyAnEnabledRegistrationCounts) {
  const std::vector<std::pair<LoginItem::Status, bool>> table = {{LoginItem::Status::notRegistered, false},
                                                                 {LoginItem::Status::enabled, true},
                                                                 {LoginItem::Status::requiresApproval, false},
                                                                 {LoginItem::Status::notFound, false}};
  for (const auto& [status, enabled] : table) {
    platform.loginItem().setStatus(status);
    EXPECT_EQ(LaunchAtLogin::isEnabled(), enabled) << static_cast<int>(status);
  }
}

TEST_F(LaunchAtLoginTest, enablingRegisters) {
  LaunchAtLogin::setEnabled(true);
  EXPECT_EQ(platform.journal().lines(), Lines{"login item: register"});
  EXPECT_TRUE(LaunchAtLogin::isEnabled());
  EXPECT_EQ(logged(), LogLines{});
}

TEST_F(LaunchAtLoginTest, enablingWhatIsEnabledUnregistersFirst) {
  platform.loginItem().setStatus(LoginItem::Status::enabled);
  LaunchAtLogin::setEnabled(true);
  EXPECT_EQ(platform.journal().lines(), (Lines{"login item: unregister", "login item: register"}));
  EXPECT_TRUE(LaunchAtLogin::isEnabled());
}

TEST_F(LaunchAtLoginTest, aRegistrationThatWaitsForApprovalIsNotTakenBackFirst) {
  platform.loginItem().setStatus(LoginItem::Status::requiresApproval);
  LaunchAtLogin::setEnabled(true);
  EXPECT_EQ(platform.journal().lines(), Lines{"login item: register"});
}

TEST_F(LaunchAtLoginTest, aFailureToUnregisterFirstIsPassedOver) {
  platform.loginItem().setStatus(LoginItem::Status::enabled);
  platform.loginItem().answers().unregisterFailure = "busy";
  LaunchAtLogin::setEnabled(true);
  EXPECT_EQ(platform.journal().lines(), (Lines{"login item: unregister", "login item: register"}));
  EXPECT_EQ(logged(), LogLines{});
}

TEST_F(LaunchAtLoginTest, aFailureToRegisterIsLogged) {
  platform.loginItem().answers().registerFailure = "Operation not permitted";
  LaunchAtLogin::setEnabled(true);
  EXPECT_EQ(logged(), line("Failed to enable launch at login: Operation not permitted"));
  EXPECT_EQ(platform.journal().lines(), Lines{"login item: register"});
  EXPECT_FALSE(LaunchAtLogin::isEnabled());
}

TEST_F(LaunchAtLoginTest, onlyTheLastOfTwoFailuresIsLogged) {
  platform.loginItem().setStatus(LoginItem::Status::enabled);
  platform.loginItem().answers() = {.registerFailure = "second", .unregisterFailure = "first"};
  LaunchAtLogin::setEnabled(true);
  EXPECT_EQ(logged(), line("Failed to enable launch at login: second"));
}

TEST_F(LaunchAtLoginTest, disablingUnregistersWhateverTheStatus) {
  for (const auto status : {LoginItem::Status::enabled, LoginItem::Status::notRegistered}) {
    platform.journal().clear();
    platform.loginItem().setStatus(status);
    LaunchAtLogin::setEnabled(false);
    EXPECT_EQ(platform.journal().lines(), Lines{"login item: unregister"});
  }
}

TEST_F(LaunchAtLoginTest, aFailureToUnregisterIsLogged) {
  platform.loginItem().answers().unregisterFailure = "Job not found";
  LaunchAtLogin::setEnabled(false);
  EXPECT_EQ(logged(), line("Failed to disable launch at login: Job not found"));
}

TEST_F(LaunchAtLoginTest, theLaunchEventTellsOfALogin) {
  struct Row {
    std::optional<kit::AppleEvent> event = std::nullopt;
    bool atLogin = false;
  };
  const std::vector<Row> table = {
      {.event = std::nullopt, .atLogin = false},
      {.event = kit::AppleEvent{.eventID = 0x6F617070}, .atLogin = false},
      {.event = kit::AppleEvent{.eventID = 0x6F617070, .parameters = {{0x70726474, 0x6C676974}}}, .atLogin = true},
      {.event = kit::AppleEvent{.eventID = 0x6F617070, .parameters = {{0x70726474, 0x73767263}}}, .atLogin = false},
      {.event = kit::AppleEvent{.eventID = 0x6F617070, .parameters = {{0x6B657964, 0x6C676974}}}, .atLogin = false},
      {.event = kit::AppleEvent{.eventID = 0x6F646F63, .parameters = {{0x70726474, 0x6C676974}}}, .atLogin = false},
  };
  for (std::size_t i = 0; i < table.size(); ++i) {
    platform.traits().currentAppleEvent = table[i].event;
    EXPECT_EQ(LaunchAtLogin::wasLaunchedAtLogin(), table[i].atLogin) << "row " << i;
  }
}

class LaunchWitness final : public kit::Object {
 public:
  LaunchWitness() {
    respondTo("applicationDidFinishLaunching:",
              [this](kit::Object* /*sender*/) { atLogin = LaunchAtLogin::wasLaunchedAtLogin(); });
  }

  bool atLogin = false;
};

TEST_F(LaunchAtLoginTest, aLoginIsKnownOnlyWhileTheLaunchIsHandled) {
  const auto witness = std::make_shared<LaunchWitness>();
  application->setDelegate(witness);
  platform.launch(*application, {.eventID = kit::openApplicationEvent,
                                 .parameters = {{kit::propertyDataKeyword, kit::launchedAsLoginItem}}});
  EXPECT_TRUE(witness->atLogin);
  EXPECT_FALSE(LaunchAtLogin::wasLaunchedAtLogin());
}

TEST_F(LaunchAtLoginTest, anApplicationHasOneObservable) {
  const auto observable = LaunchAtLogin::observable();
  EXPECT_EQ(LaunchAtLogin::observable(), observable);
  application = kit::Application::create(platform);
  EXPECT_NE(LaunchAtLogin::observable(), observable);
}

TEST_F(LaunchAtLoginTest, theObservableTellsBeforeItWrites) {
  const auto observable = LaunchAtLogin::observable();
  const auto subscription = observable->observe([&] { platform.journal().note("objectWillChange"); });
  observable->setEnabled(true);
  EXPECT_EQ(platform.journal().lines(), (Lines{"objectWillChange", "login item: register"}));
  EXPECT_TRUE(observable->isEnabled());
}

TEST_F(LaunchAtLoginTest, theObservableTellsOfAWriteThatFailsToo) {
  platform.loginItem().answers().unregisterFailure = "no";
  const auto observable = LaunchAtLogin::observable();
  int told = 0;
  const auto subscription = observable->observe([&] { ++told; });
  observable->setEnabled(false);
  EXPECT_EQ(told, 1);
}

TEST(LaunchAtLoginDeathTest, withoutAnApplicationThereIsNothingToAsk) {
  EXPECT_DEATH(LaunchAtLogin::isEnabled(), "tarnwell: there is no application");
}

}  // namespace
}  // namespace tarnwell::launchatlogin
