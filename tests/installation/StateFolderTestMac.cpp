#include <gtest/gtest.h>

#include "fixtures/EnvironmentScope.h"
#include "installation/StateFolder.h"

namespace tarnwell::installation {
namespace {

using fixtures::EnvironmentScope;

TEST(StateFolder, isTheApplications) {
  const EnvironmentScope home("HOME", "/Users/anna");
  const EnvironmentScope other("XDG_STATE_HOME", "/state");
  EXPECT_EQ(programStateFolder("tarnwell"), "/Users/anna/Library/Application Support/Tarnwell");
}

TEST(StateFolder, isNoneWithoutAHome) {
  const EnvironmentScope home("HOME", "relative");
  EXPECT_EQ(programStateFolder("tarnwell"), "");
}

}  // namespace
}  // namespace tarnwell::installation
