#include <gtest/gtest.h>

#include "fixtures/EnvironmentScope.h"
#include "installation/StateFolder.h"

namespace tarnwell::installation {
namespace {

using fixtures::EnvironmentScope;

TEST(StateFolder, isCalledAsTheProgram) {
  const EnvironmentScope home("HOME", "/home/anna");
  const EnvironmentScope none("XDG_STATE_HOME", "");
  EXPECT_EQ(programStateFolder("tarnwell"), "/home/anna/.local/state/tarnwell");
  const EnvironmentScope named("XDG_STATE_HOME", "/state");
  EXPECT_EQ(programStateFolder("tarnwell"), "/state/tarnwell");
}

TEST(StateFolder, isNoneWithoutAHome) {
  const EnvironmentScope none("XDG_STATE_HOME", "");
  const EnvironmentScope home("HOME", "relative");
  EXPECT_EQ(programStateFolder("tarnwell"), "");
}

}  // namespace
}  // namespace tarnwell::installation
