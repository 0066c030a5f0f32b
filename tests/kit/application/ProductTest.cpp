#include "kit/application/Product.h"

#include <gtest/gtest.h>

namespace tarnwell::kit {
namespace {

TEST(ProductTest, thePagesStandOnItsWebHost) {
  EXPECT_EQ(Product{.webHost = "tarnwell.example"}.page("/help"), "https://tarnwell.example/help");
  EXPECT_EQ(Product{.webHost = "my-host.example:8080"}.page("/"), "https://my-host.example:8080/");
}

TEST(ProductDeathTest, aHostThatFormsNoAddressIsAFault) {
  EXPECT_DEATH((void)Product{}.page("/help"), "tarnwell: no address: https:///help");
  EXPECT_DEATH((void)Product{.webHost = "not a host"}.page("/help"), "tarnwell: no address");
  EXPECT_DEATH((void)Product{.webHost = "host/path"}.page("/help"), "tarnwell: no address");
}

}  // namespace
}  // namespace tarnwell::kit
