#include <gtest/gtest.h>

#include "standin/Process.h"

namespace tarnwell::commandline {
namespace {

TEST(Completion, everyShellOffersWhatCanBeTyped) {
  const auto outcome = standin::run({COMPLETIONS_PATH, FRONT_PATH}, {"PATH=/usr/bin:/bin"});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
}

}  // namespace
}  // namespace tarnwell::commandline
