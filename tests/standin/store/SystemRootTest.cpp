#include "standin/store/SystemRoot.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "standin/Process.h"
#include "system/base/Utf8.h"

namespace tarnwell::standin {
namespace {

using testing::HasSubstr;

class SystemRootTest : public testing::TestWithParam<Words> {};

// What reads a message takes it for UTF-8, and would stop at the name of a file.
TEST_P(SystemRootTest, oneThatIsNotUtf8IsRefused) {
  for (const char* variable : {"MACOS_ROOT", "XDG_DATA_HOME", "HOME"}) {
    const Outcome outcome = run(GetParam(), {std::string(variable) + "=/tmp/\xff", "PATH=/usr/bin:/bin"});
    EXPECT_EQ(outcome.status, 1) << variable;
    EXPECT_THAT(outcome.errors, HasSubstr(std::string(variable) + " is not UTF-8"));
    EXPECT_TRUE(system::isUtf8(outcome.errors)) << outcome.errors;
  }
}

INSTANTIATE_TEST_SUITE_P(tools, SystemRootTest,
                         testing::Values(Words{DEFAULTS_PATH, "read", "com.apple.dock", "k"},
                                         Words{DEFAULTS_PATH, "write", "com.apple.dock", "k", "v"},
                                         Words{DEFAULTS_PATH, "domains"}, Words{KILLALL_PATH, "Dock"},
                                         Words{DOCK_PATH, "--no-window"}, Words{DOCK_PATH, "--list"},
                                         Words{SUPERVISOR_PATH}));

TEST(SystemRootNameTest, mayHoldAnyLetter) {
  const auto found = systemRoot([](const std::string& name) { return name == "HOME" ? "/home/é" : ""; });
  ASSERT_TRUE(found);
  EXPECT_EQ(*found, "/home/é/.local/share/macos-standin");
}

}  // namespace
}  // namespace tarnwell::standin
