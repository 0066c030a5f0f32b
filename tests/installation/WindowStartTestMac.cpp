#include <gtest/gtest.h>

#include "installation/WindowStart.h"

namespace tarnwell::installation {
namespace {

TEST(WindowStart, opensTheApplicationAroundTheFront) {
  const auto start = windowStart("/Applications/My Own.app/Contents/Helpers/tarnwell", "tarnwell", {"t"});
  ASSERT_TRUE(start);
  EXPECT_EQ(start->program, "/usr/bin/open");
  EXPECT_EQ(start->words, (std::vector<std::string>{"open", "/Applications/My Own.app"}));
}

TEST(WindowStart, whereThereIsNoApplicationItSaysSo) {
  for (const char* front : {"/usr/local/bin/tarnwell", "/a/Contents/Helpers/tarnwell", "/a.app/Helpers/tarnwell"}) {
    EXPECT_EQ(windowStart(front, "tarnwell", {"t"}).error().message,
              "The window is not installed; " + std::string(front) + " lies in no application.");
  }
}

}  // namespace
}  // namespace tarnwell::installation
