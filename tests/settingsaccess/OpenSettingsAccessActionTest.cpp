#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "host/headless/HeadlessPlatform.h"
#include "settingsaccess/LegacyOpener.h"
#include "settingsaccess/OpenSettingsAccessAction.h"
#include "settingsaccess/OpenSettingsError.h"
#include "settingsaccess/OpenSettingsKey.h"
#include "settingsaccess/SettingsDelegate.h"
#include "view/state/Environment.h"

namespace tarnwell::settingsaccess {
namespace {

using Selectors = std::vector<std::string>;

struct System {
  explicit System(int major) { platform.traits().systemVersion = {.major = major}; }

  host_headless::HeadlessPlatform platform;
  std::shared_ptr<kit::Application> application = kit::Application::create(platform);
};

template <class E>
std::optional<E> errorOf(const std::exception_ptr& failure) {
  if (!failure) {
    return std::nullopt;
  }
  try {
    std::rethrow_exception(failure);
  } catch (const Failure<E>& error) {
    return error.error();
  } catch (...) {
    return std::nullopt;
  }
}

TEST(OpenSettingsAccessAction, isNotConnectedAtFirstOnSystem14) {
  const System system(14);
  const auto action = OpenSettingsAccessAction::create(*system.application);
  EXPECT_FALSE(action->closure);
  EXPECT_FALSE(action->closureBinding.get().has_value());
  EXPECT_EQ(errorOf<OpenSettingsError>((*action)()), OpenSettingsError::settingsLinkNotConnected);
}

TEST(OpenSettingsAccessAction, callsWhatItsBindingWasGiven) {
  const System system(14);
  const auto action = OpenSettingsAccessAction::create(*system.application);
  int calls = 0;
  action->closureBinding.set([&calls] { ++calls; });
  EXPECT_EQ((*action)(), nullptr);
  EXPECT_EQ(calls, 1);
  (*action->closureBinding.get())();
  EXPECT_EQ(calls, 2);
}

TEST(OpenSettingsAccessAction, isDisconnectedByNone) {
  const System system(14);
  const auto action = OpenSettingsAccessAction::create(*system.application);
  action->closureBinding.set([] {});
  action->closureBinding.set(std::nullopt);
  EXPECT_EQ(errorOf<OpenSettingsError>((*action)()), OpenSettingsError::settingsLinkNotConnected);
}

TEST(OpenSettingsAccessAction, isNotKeptAliveByItsBinding) {
  const System system(14);
  auto action = OpenSettingsAccessAction::create(*system.application);
  const std::weak_ptr weak = action;
  const auto binding = action->closureBinding;
  binding.set([] {});
  action.reset();
  EXPECT_TRUE(weak.expired());
  EXPECT_FALSE(binding.get().has_value());
  binding.set([] { FAIL() << "this is not called"; });
}

TEST(OpenSettingsAccessAction, passesOnAnyOtherErrorAsItIs) {
  const System system(14);
  const auto action = OpenSettingsAccessAction::create(*system.application);
  action->closure = [] { return std::make_exception_ptr(std::runtime_error("of its own")); };
  EXPECT_THROW(std::rethrow_exception((*action)()), std::runtime_error);
}

TEST(OpenSettingsAccessAction, translatesLegacyErrors) {
  const System system(14);
  const auto action = OpenSettingsAccessAction::create(*system.application);
  action->closure = [] { return std::make_exception_ptr(Failure(LegacyOpenSettingsError::selectorNotFound)); };
  EXPECT_EQ(errorOf<OpenSettingsError>((*action)()), OpenSettingsError::selectorNotFound);
  action->closure = [] { return std::make_exception_ptr(Failure(LegacyOpenSettingsError::unsupportedPlatform)); };
  EXPECT_EQ(errorOf<OpenSettingsError>((*action)()), OpenSettingsError::unsupportedPlatform);
}

TEST(OpenSettingsAccessAction, sendsTheNewerSelectorOnSystem13AndNeverTriesTheOlder) {
  const System system(13);
  const auto delegate = std::make_shared<SettingsDelegate>(std::set<kit::Selector>{"showSettingsWindow:"});
  system.application->setDelegate(delegate);
  EXPECT_EQ((*OpenSettingsAccessAction::create(*system.application))(), nullptr);
  EXPECT_EQ(delegate->received, (Selectors{"showSettingsWindow:"}));
  EXPECT_EQ(std::ranges::count(delegate->asked, "showPreferencesWindow:"), 0);
}

TEST(OpenSettingsAccessAction, fallsBackToTheOlderSelectorOnSystem12) {
  const System system(12);
  const auto delegate = std::make_shared<SettingsDelegate>(std::set<kit::Selector>{"showPreferencesWindow:"});
  system.application->setDelegate(delegate);
  EXPECT_EQ((*OpenSettingsAccessAction::create(*system.application))(), nullptr);
  EXPECT_EQ(delegate->received, (Selectors{"showPreferencesWindow:"}));
  EXPECT_EQ(delegate->asked.front(), "showSettingsWindow:");
}

TEST(OpenSettingsAccessAction, failsWithoutADelegateOnSystems11To13) {
  for (const int major : {11, 12, 13}) {
    const System system(major);
    const auto action = OpenSettingsAccessAction::create(*system.application);
    EXPECT_TRUE(action->closure);
    EXPECT_FALSE(action->closureBinding.get().has_value());
    EXPECT_EQ(errorOf<OpenSettingsError>((*action)()), OpenSettingsError::selectorNotFound) << major;
  }
}

TEST(OpenSettingsAccessAction, failsOnADelegateThatKnowsNeitherSelector) {
  const System system(13);
  const auto delegate = std::make_shared<SettingsDelegate>(std::set<kit::Selector>{});
  system.application->setDelegate(delegate);
  EXPECT_EQ(errorOf<OpenSettingsError>((*OpenSettingsAccessAction::create(*system.application))()),
            OpenSettingsError::selectorNotFound);
  EXPECT_EQ(delegate->received, Selectors{});
}

TEST(LegacyOpener, isUnsupportedFromSystem14On) {
  const System system(14);
  const auto delegate = std::make_shared<SettingsDelegate>(std::set<kit::Selector>{"showSettingsWindow:"});
  system.application->setDelegate(delegate);
  EXPECT_EQ(openSettingsThroughDelegate(*system.application), LegacyOpenSettingsError::unsupportedPlatform);
  EXPECT_EQ(delegate->received, Selectors{});
}

TEST(OpenSettingsKey, givesOneActionForTheWholeApplication) {
  const System system(14);
  EXPECT_EQ(OpenSettingsKey::initial(), OpenSettingsKey::initial());
}

TEST(OpenSettingsKey, givesEachApplicationItsOwn) {
  const System first(14);
  const auto action = OpenSettingsKey::initial();
  const System second(14);
  EXPECT_NE(OpenSettingsKey::initial(), action);
}

TEST(OpenSettingsAccessAction, followsTheLinkFromVersion14_0_0On) {
  for (const auto& [version, isLive] : {std::pair(kit::SystemVersion{.major = 13, .minor = 9, .patch = 9}, false),
                                        std::pair(kit::SystemVersion{.major = 14}, true),
                                        std::pair(kit::SystemVersion{.major = 15, .minor = 1}, true)}) {
    System system(version.major);
    system.platform.traits().systemVersion = version;
    const auto action = OpenSettingsAccessAction::create(*system.application);
    action->closureBinding.set([] {});
    EXPECT_EQ(action->closureBinding.get().has_value(), isLive) << version.major;
  }
}

TEST(OpenSettingsAccessAction, cannotBeConnectedAnewOnSystem13) {
  const System system(13);
  const auto action = OpenSettingsAccessAction::create(*system.application);
  action->closureBinding.set([] { FAIL() << "the binding holds none, whatever it is given"; });
  EXPECT_EQ(errorOf<OpenSettingsError>((*action)()), OpenSettingsError::selectorNotFound);
  action->closureBinding.set(std::nullopt);
  EXPECT_TRUE(action->closure);
}

TEST(OpenSettingsAccessAction, itsBindingGivesAnActionThatFailsNever) {
  const System system(14);
  const auto action = OpenSettingsAccessAction::create(*system.application);
  action->closure = [] { return std::make_exception_ptr(std::runtime_error("of its own")); };
  EXPECT_NO_THROW((*action->closureBinding.get())());
}

TEST(OpenSettingsAccessAction, mayBeDisconnectedByWhatItCalls) {
  const System system(14);
  const auto action = OpenSettingsAccessAction::create(*system.application);
  action->closureBinding.set([&action] { action->closureBinding.set(std::nullopt); });
  EXPECT_EQ((*action)(), nullptr);
  EXPECT_FALSE(action->closure);
}

TEST(OpenSettingsError, hasItsCasesInOrder) {
  EXPECT_LT(LegacyOpenSettingsError::unsupportedPlatform, LegacyOpenSettingsError::selectorNotFound);
  EXPECT_LT(OpenSettingsError::unsupportedPlatform, OpenSettingsError::selectorNotFound);
  EXPECT_LT(OpenSettingsError::selectorNotFound, OpenSettingsError::settingsLinkNotConnected);
}

/// Reads the action where no view stands.
std::string readOutsideOfAView(int major) {
  const System system(major);
  testing::internal::CaptureStderr();
  EXPECT_EQ(view::Environment<OpenSettingsKey>().get(), OpenSettingsKey::initial());
  return testing::internal::GetCapturedStderr();
}

TEST(OpenSettingsKey, readOutsideOfAViewIsReportedAndGivesTheDefault) {
  EXPECT_EQ(readOutsideOfAView(14),
            "Accessing Environment<OpenSettingsAccessAction>'s value outside of being installed on a View. This will "
            "always read the default value and will not update.\n");
  EXPECT_EQ(readOutsideOfAView(13),
            "Accessing Environment's value outside of being installed on a View. This will always read the default "
            "value and will not update.\n");
}

TEST(OpenSettingsKeyDeathTest, withoutAnApplicationThereIsNoAction) {
  EXPECT_DEATH(OpenSettingsKey::initial(), "tarnwell: there is no application");
}

}  // namespace
}  // namespace tarnwell::settingsaccess
