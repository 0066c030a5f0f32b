#include "core/ProductPages.h"

#include <gtest/gtest.h>

namespace tarnwell::core {
namespace {

TEST(ProductPagesTest, anAddressIsSchemeHostAndPath) {
  EXPECT_EQ(pageAddress("tarnwell.example", "/help"), "https://tarnwell.example/help");
  EXPECT_EQ(pageAddress("my-host.example:8080", "/"), "https://my-host.example:8080/");
}

TEST(ProductPagesTest, theHelpPageStandsOnTheProductsHost) {
  EXPECT_EQ(helpPage(), "https://" TARNWELL_WEB_HOST "/help");
}

TEST(ProductPagesTest, aHostThatFormsNoAddressIsAFault) {
  EXPECT_DEATH(pageAddress("", "/help"), "tarnwell: no address: https:///help");
  EXPECT_DEATH(pageAddress("not a host", "/help"), "tarnwell: no address");
  EXPECT_DEATH(pageAddress("host/path", "/help"), "tarnwell: no address");
}

}  // namespace
}  // namespace tarnwell::core
