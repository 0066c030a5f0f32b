#include "dockscreen/ContentView.h"

#include <gtest/gtest.h>

#include "dockscreen/CommandRunnerKey.h"
#include "fakes/RecordingCommandRunner.h"
#include "fixtures/DockCommands.h"
#include "fixtures/StandardOutputCapture.h"
#include "view/Stage.h"
#include "view/controls/text/Text.h"

namespace tarnwell::dockscreen {
namespace {

TEST(ContentViewTest, mountingReadsNothing) {
  const fixtures::StandardOutputCapture output;
  fakes::RecordingCommandRunner runner;
  view::Stage stage{view::View(ContentView{}).frame({.width = 600}),
                    view::Stage::makeEnvironment().with<CommandRunnerKey>(&runner)};
  EXPECT_EQ(runner.commands, view::Lines{});
  stage.open();
  EXPECT_EQ(runner.captured, fixtures::readCommands());
}

TEST(ContentViewTest, theSettingsGoWithTheTab) {
  const fixtures::StandardOutputCapture output;
  fakes::RecordingCommandRunner runner;
  const auto environment = view::Stage::makeEnvironment().with<CommandRunnerKey>(&runner);
  view::Stage stage{view::View(ContentView{}).frame({.width = 600}), environment};
  stage.open();
  runner.captured.clear();
  stage.show(view::Text{"another tab"});
  EXPECT_EQ(runner.captured, view::Lines{});
  stage.show(view::View(ContentView{}).frame({.width = 600}));
  EXPECT_EQ(runner.captured, fixtures::readCommands());
}

TEST(ContentViewDeathTest, withoutACommandRunnerItIsAFault) {
  EXPECT_DEATH((view::Stage{ContentView{}}), "the Dock tab stands where the environment has no command runner");
}

}  // namespace
}  // namespace tarnwell::dockscreen
