#include <gtest/gtest.h>

#include <cstdlib>

#include "fixtures/EnvironmentScope.h"
#include "installation/StandIns.h"

namespace tarnwell::installation {
namespace {

TEST(StandIns, areNotOnTheSearchPathWhereTheToolsAre) {
  const fixtures::EnvironmentScope path("PATH", "/usr/bin:/bin");
  EXPECT_TRUE(putStandInsFirst("tarnwell"));
  EXPECT_EQ(std::getenv("PATH"), std::string("/usr/bin:/bin"));
}

}  // namespace
}  // namespace tarnwell::installation
