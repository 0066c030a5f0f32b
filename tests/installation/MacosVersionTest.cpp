#include "installation/MacosVersion.h"

#include <gtest/gtest.h>

#include <vector>

#include "system/base/Utf8.h"

namespace tarnwell::installation {
namespace {

std::string failure(const system::Result<VersionNumbers>& result) { return result ? "" : result.error().message; }

TEST(MacosVersion, takesOneToThreeNumbers) {
  struct Row {
    const char* text = "";
    VersionNumbers version = {};
  };
  const std::vector<Row> rows = {
      {"14", {14, 0, 0}}, {"14.0.0", {14, 0, 0}}, {"14.5", {14, 5, 0}},   {"15.0.1", {15, 0, 1}},
      {"26", {26, 0, 0}}, {"014", {14, 0, 0}},    {"14.10", {14, 10, 0}}, {"14.999999999", {14, 999999999, 0}},
  };
  for (const Row& row : rows) {
    const auto result = parseMacosVersion("MACOS_VERSION", row.text);
    ASSERT_TRUE(result) << row.text << ": " << failure(result);
    EXPECT_EQ(*result, row.version) << row.text;
  }
}

TEST(MacosVersion, isReadNoFurtherThanItsText) {
  const std::string_view longer = "14.57";
  EXPECT_EQ(*parseMacosVersion("MACOS_VERSION", longer.substr(0, 4)), (VersionNumbers{14, 5, 0}));
  EXPECT_EQ(parseMacosVersion("MACOS_VERSION", longer.substr(0, 1)).error().message,
            "MACOS_VERSION is \"1\": the oldest supported version is 14");
}

TEST(MacosVersion, refusesWhatIsNoVersion) {
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
    EXPECT_EQ(failure(parseMacosVersion("MACOS_VERSION", text)),
              "MACOS_VERSION is \"" + std::string(text) +
                  "\": a version is one to three numbers with points between, such as 14.5");
  }
}

TEST(MacosVersion, refusesVersionsBefore14) {
  EXPECT_EQ(failure(parseMacosVersion("MACOS_VERSION", "13.2")),
            "MACOS_VERSION is \"13.2\": the oldest supported version is 14");
  EXPECT_EQ(failure(parseMacosVersion("MACOS_VERSION", "0")),
            "MACOS_VERSION is \"0\": the oldest supported version is 14");
}

TEST(MacosVersion, messageIsOneLineOfBoundedLength) {
  const std::string message = failure(parseMacosVersion("MACOS_VERSION", "1\n\x1B[2J" + std::string(1000, 'x')));
  EXPECT_EQ(message.find('\n'), std::string::npos);
  EXPECT_EQ(message.find('\x1B'), std::string::npos);
  EXPECT_LT(message.size(), 200U);
}

TEST(MacosVersion, messageHasWholeCharactersAlone) {
  const auto message = [](const std::string& text) { return failure(parseMacosVersion("MACOS_VERSION", text)); };
  for (std::size_t before = 35; before < 42; ++before) {
    EXPECT_TRUE(system::isUtf8(message(std::string(before, 'x') + "\u201c\u201d\u201c"))) << before;
  }
  EXPECT_TRUE(message("\xff\xe2\x80 \u009b").starts_with("MACOS_VERSION is \"??? ?\": "));
}

}  // namespace
}  // namespace tarnwell::installation
