#include "updates/UpdaterEnv.h"

#include <gtest/gtest.h>

#include "host/headless/HeadlessPlatform.h"
#include "kit/application/Application.h"

namespace tarnwell::updates {
namespace {

using Lines = std::vector<std::string>;

TEST(UpdaterEnvTest, makesOneControllerAndKeepsIt) {
  host_headless::HeadlessPlatform platform;
  const auto application = kit::Application::create(platform);
  const UpdaterEnv environment;
  EXPECT_EQ(platform.journal().lines(), Lines{"updater controller made"});
  EXPECT_EQ(&environment.updaterController().updater(), &platform.updater());
  EXPECT_EQ(&environment.updaterController(), &environment.updaterController());
  EXPECT_EQ(platform.journal().lines().size(), 1U);
}

TEST(UpdaterEnvTest, tellsOfAReplacementBeforeItIsMade) {
  host_headless::HeadlessPlatform platform;
  const auto application = kit::Application::create(platform);
  UpdaterEnv environment;
  auto next = platform.makeUpdaterController(*application, {});
  const kit::UpdaterController* const before = &environment.updaterController();
  const kit::UpdaterController* const after = next.get();
  std::vector<const kit::UpdaterController*> seen;
  const auto subscription = environment.observe([&] { seen.push_back(&environment.updaterController()); });
  environment.setUpdaterController(std::move(next));
  EXPECT_EQ(seen, std::vector{before});
  EXPECT_EQ(&environment.updaterController(), after);
}

TEST(UpdaterEnvDeathTest, withoutAnApplicationThereIsNoUpdater) {
  EXPECT_DEATH(UpdaterEnv(), "tarnwell: there is no application");
}

}  // namespace
}  // namespace tarnwell::updates
