#include "release/text/Report.h"

#include <gtest/gtest.h>

#include <string>

namespace tarnwell::release {
namespace {

std::string reported(const std::string& message) {
  testing::internal::CaptureStderr();
  report(system::Failure{message});
  return testing::internal::GetCapturedStderr();
}

TEST(Report, isOneLineWhateverTheFailureSays) {
  EXPECT_EQ(reported("cannot write"), "tarnwell: cannot write\n");
  EXPECT_EQ(reported("two\nlines\r\n\x1b]0;title\x07 \xe2\x80\xae"), "tarnwell: two lines ]0;title\n");
}

TEST(Report, hasABearableLength) { EXPECT_LT(reported(std::string(1'000'000, 'x')).size(), 7000U); }

TEST(Report, saysNothingOfWhatWentWell) {
  testing::internal::CaptureStderr();
  report(system::Result<void>());
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace tarnwell::release
