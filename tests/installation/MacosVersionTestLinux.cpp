#include <gtest/gtest.h>

#include "fixtures/EnvironmentScope.h"
#include "installation/MacosVersion.h"

namespace tarnwell::installation {
namespace {

using fixtures::EnvironmentScope;

TEST(MacosVersion, is14UnlessTheEnvironmentSaysOtherwise) {
  const EnvironmentScope unset("MACOS_VERSION", "");
  EXPECT_EQ(*macosVersion(), (VersionNumbers{14, 0, 0}));
  const EnvironmentScope newer("MACOS_VERSION", "15.1");
  EXPECT_EQ(*macosVersion(), (VersionNumbers{15, 1, 0}));
  const EnvironmentScope wrong("MACOS_VERSION", "Sonoma");
  EXPECT_FALSE(macosVersion());
}

}  // namespace
}  // namespace tarnwell::installation
