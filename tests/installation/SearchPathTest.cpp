#include "installation/SearchPath.h"

#include <gtest/gtest.h>

namespace tarnwell::installation {
namespace {

TEST(SearchPath, standInsComeFirstAndOnce) {
  EXPECT_EQ(searchPathWith("/ours", "/usr/bin:/bin"), "/ours:/usr/bin:/bin");
  EXPECT_EQ(searchPathWith("/ours", "/usr/bin:/ours:/bin:/ours"), "/ours:/usr/bin:/bin");
  EXPECT_EQ(searchPathWith("/ours", "/ours"), "/ours");
  EXPECT_EQ(searchPathWith("/ours", "/ours2:/bin"), "/ours:/ours2:/bin");
  EXPECT_EQ(searchPathWith("/ours", "/usr/bin:"), "/ours:/usr/bin:");
}

TEST(SearchPath, systemFoldersStandInForNone) {
  EXPECT_EQ(searchPathWith("/ours", ""), "/ours:/usr/local/bin:/usr/bin:/bin");
}

}  // namespace
}  // namespace tarnwell::installation
