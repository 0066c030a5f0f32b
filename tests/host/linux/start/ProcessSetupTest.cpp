#include "host/linux/start/ProcessSetup.h"

#include <gtest/gtest.h>

#include <csignal>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/Subprocess.h"

namespace tarnwell::host_linux {
namespace {

std::string refusalWith(const std::string& macosVersion) {
  const fixtures::EnvironmentScope version("MACOS_VERSION", macosVersion);
  const auto setup = ProcessSetup::prepare("tarnwell");
  return setup ? "" : setup.error().message;
}

// The test lies where no stand-ins are.
TEST(ProcessSetupTest, needsASystemThatIsNewEnoughAndTheStandIns) {
  EXPECT_EQ(refusalWith("13.2"), "MACOS_VERSION is \"13.2\": the oldest supported version is 14");
  EXPECT_TRUE(refusalWith("14").starts_with("no program defaults in ")) << refusalWith("14");
}

TEST(ProcessSetupTest, hearsOfTheEndsOfChildrenWhateverTheParentIgnores) {
  EXPECT_EQ(fixtures::exitStatusOf([] {
              (void)std::signal(SIGCHLD, SIG_IGN);
              (void)ProcessSetup::prepare("tarnwell");
              return std::signal(SIGCHLD, SIG_DFL) == SIG_DFL ? 0 : 1;
            }),
            0);
}

}  // namespace
}  // namespace tarnwell::host_linux
