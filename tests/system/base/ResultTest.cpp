#include "system/base/Result.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <memory>
#include <utility>

namespace tarnwell::system {
namespace {

TEST(ResultTest, holdsWhatWasAskedFor) {
  Result<std::string> result = "text";
  ASSERT_TRUE(result);
  EXPECT_EQ(*result, "text");
  result->append("s");
  EXPECT_EQ(*std::move(result), "texts");
}

TEST(ResultTest, holdsWhyNot) {
  const Result<std::string> result = Failure{"no text"};
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error().message, "no text");
  EXPECT_EQ(result.error().error, 0);
}

TEST(ResultTest, takesWhatBecomesTheValueAndCannotBeCopied) {
  Result<std::unique_ptr<const int>> result = std::make_unique<int>(3);
  ASSERT_TRUE(result);
  const std::unique_ptr<const int> taken = *std::move(result);
  EXPECT_EQ(*taken, 3);
}

TEST(ResultTest, nothingToHoldIsDoneOrNot) {
  EXPECT_TRUE(Result<void>());
  const Result<void> failed = Failure{"not done"};
  ASSERT_FALSE(failed);
  EXPECT_EQ(failed.error().message, "not done");
}

TEST(ResultTest, aFailureOfTheSystemSaysItsReason) {
  errno = ENOSPC;
  const Failure failure = systemFailure("cannot write a");
  EXPECT_EQ(failure.message, "cannot write a: No space left on device");
  EXPECT_EQ(failure.error, ENOSPC);
}

}  // namespace
}  // namespace tarnwell::system
