#include <gtest/gtest.h>

#include "host/macos/Stage.h"
#include "host/macos/gnustep/Workspace.h"

namespace tarnwell::host_macos {
namespace {

TEST(MacPlatformTest, whatIsNoAddressOpensNothing) {
  Stage stage;
  stage.platform.openUrl("");
  EXPECT_EQ([[TWWorkspace openedAddresses] length], 0U);
  stage.platform.openUrl("https://tarnwell.example/help");
  EXPECT_TRUE([[TWWorkspace openedAddresses] isEqualToString:@"https://tarnwell.example/help"]);
}

}  // namespace
}  // namespace tarnwell::host_macos
