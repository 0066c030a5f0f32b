#include <gtest/gtest.h>

#include "fixtures/EnvironmentScope.h"
#include "installation/MacosVersion.h"
#include "system/base/SystemVersion.h"

namespace tarnwell::installation {
namespace {

TEST(MacosVersion, isTheSystemsOwnWhateverTheEnvironmentSays) {
  const fixtures::EnvironmentScope other("MACOS_VERSION", "13");
  EXPECT_EQ(*macosVersion(), *parseMacosVersion("the system", system::systemVersion()));
}

}  // namespace
}  // namespace tarnwell::installation
