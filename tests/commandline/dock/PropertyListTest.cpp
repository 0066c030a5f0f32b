#include "commandline/dock/PropertyList.h"

#include <gtest/gtest.h>

namespace tarnwell::commandline {
namespace {

using core::OtherValue;
using core::StoredValue;

std::string listOf(const std::string& element) {
  return R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0">)" + element + "</plist>";
}

/// What is found for the first setting, whose element this is.
StoredValue valueOf(const std::string& element) {
  const auto values =
      storedValuesIn(listOf("<dict><key>other</key><true/><key>autohide-delay</key>" + element + "</dict>"));
  return values ? values->front() : StoredValue(values.error().message);
}

TEST(PropertyList, tellsValuesWithTheirTypes) {
  EXPECT_EQ(valueOf("<real>0.15</real>"), StoredValue(0.15));
  EXPECT_EQ(valueOf("<true/>"), StoredValue(true));
  EXPECT_EQ(valueOf("<string>suck &amp; more</string>"), StoredValue("suck & more"));
  EXPECT_EQ(valueOf("<integer>1</integer>"), StoredValue(OtherValue{"integer", "1"}));
  EXPECT_EQ(valueOf("<integer>-5</integer>"), StoredValue(OtherValue{"integer", "-5"}));
  EXPECT_EQ(valueOf("<array><true/></array>"), StoredValue(OtherValue{"array", ""}));
  EXPECT_EQ(valueOf("<dict/>"), StoredValue(OtherValue{"dictionary", ""}));
  EXPECT_EQ(valueOf("<data>AAAA</data>"), StoredValue(OtherValue{"data", ""}));
  EXPECT_EQ(valueOf("<date>2026-11-22T10:00:00Z</date>"), StoredValue(OtherValue{"date", ""}));
}

TEST(PropertyList, whatIsNotThereIsAbsent) {
  const auto values = storedValuesIn(listOf("<dict/>"));
  ASSERT_TRUE(values);
  EXPECT_EQ(*values, core::StoredValues());
}

TEST(PropertyList, refusesWhatIsNoDictionary) {
  for (const std::string& text : {std::string(), std::string("nonsense"), listOf("<array/>")}) {
    EXPECT_FALSE(storedValuesIn(text)) << text;
  }
}

}  // namespace
}  // namespace tarnwell::commandline
