#include "installation/EmulatedSystemVersion.h"

#include <gtest/gtest.h>

#include <vector>

#include "fixtures/EnvironmentScope.h"

namespace tarnwell::installation {
namespace {

using fixtures::EnvironmentScope;

std::string failure(const system::Result<VersionNumbers>& result) { return result ? "" : result.error().message; }

TEST(EmulatedSystemVersion, takesOneToThreeNumbers) {
  struct Row {
    const char* text = "";
    VersionNumbers version = {};
  };
  const std::vector<Row> rows = {
      {"14", {14, 0, 0}}, {"14.0.0", {14, 0, 0}}, {"14.5", {14, 5, 0}},   {"15.0.1", {15, 0, 1}},
      {"26", {26, 0, 0}}, {"014", {14, 0, 0}},    {"14.10", {14, 10, 0}}, {"14.999999999", {14, 999999999, 0}},
  };
  for (const Row& row : rows) {
    const auto result = parseSystemVersion(row.text);
    ASSERT_TRUE(result) << row.text << ": " << failure(result);
    EXPECT_EQ(*result, row.version) << row.text;
  }
}

TEST(EmulatedSystemVersion, refusesWhatIsNoVersion) {
  for (const char* text : {"",
                           " ",
                           "14 ",
                           " 14",
                           "+14",
                           "-14",
                           "14.",
                           ".14",
                           "14..0",
                           "14.0.0.0",
                           "14.0.0.",
                           "x",
                           "14x",
                           "14.x",
                           "0x0e",
                           "1e2",
                           "14,0",
                           "99999999999999999999",
                           "14.0.9999999999",
                           "\u0661\u0664"}) {
    EXPECT_EQ(failure(parseSystemVersion(text)),
              "MACOS_VERSION is \"" + std::string(text) +
                  "\": a version is one to three numbers with points between, such as 14.5");
  }
}

TEST(EmulatedSystemVersion, refusesVersionsBefore14) {
  EXPECT_EQ(failure(parseSystemVersion("13.2")), "MACOS_VERSION is \"13.2\": the oldest supported version is 14");
  EXPECT_EQ(failure(parseSystemVersion("0")), "MACOS_VERSION is \"0\": the oldest supported version is 14");
}

TEST(EmulatedSystemVersion, messageIsOneLineOfBoundedLength) {
  const std::string message = failure(parseSystemVersion("1\n\x1B[2J" + std::string(1000, 'x')));
  EXPECT_EQ(message.find('\n'), std::string::npos);
  EXPECT_EQ(message.find('\x1B'), std::string::npos);
  EXPECT_LT(message.size(), 200U);
}

TEST(EmulatedSystemVersion, is14UnlessTheEnvironmentSaysOtherwise) {
  const EnvironmentScope unset("MACOS_VERSION", "");
  EXPECT_EQ(*emulatedSystemVersion(), (VersionNumbers{14, 0, 0}));
  const EnvironmentScope newer("MACOS_VERSION", "15.1");
  EXPECT_EQ(*emulatedSystemVersion(), (VersionNumbers{15, 1, 0}));
  const EnvironmentScope wrong("MACOS_VERSION", "Sonoma");
  EXPECT_NE(failure(emulatedSystemVersion()), "");
}

}  // namespace
}  // namespace tarnwell::installation
