#include "commandline/dock/PropertyList.h"

#include <gtest/gtest.h>

#include "commandline/dock/Element.h"

namespace tarnwell::commandline {
namespace {

using core::OtherValue;
using core::StoredValue;

std::string listOf(const std::string& element) {
  return R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0">)" + element + "</plist>";
}

/// What is found for the first setting, whose element this is. How an element is indented is the library's business.
StoredValue valueOf(const std::string& element) {
  const auto values =
      storedValuesIn(listOf("<dict><key>other</key><true/><key>autohide-delay</key>" + element + "</dict>"));
  StoredValue value = values ? values->front() : StoredValue(values.error().message);
  if (auto* other = std::get_if<OtherValue>(&value)) {
    std::erase_if(other->element, [](char c) { return c == ' ' || c == '\n' || c == '\t'; });
  }
  return value;
}

TEST(PropertyList, tellsValuesWithTheirTypes) {
  EXPECT_EQ(valueOf("<real>0.15</real>"), StoredValue(0.15));
  EXPECT_EQ(valueOf("<true/>"), StoredValue(true));
  EXPECT_EQ(valueOf("<string>suck &amp; more</string>"), StoredValue("suck & more"));
  EXPECT_EQ(valueOf("<integer>1</integer>"), StoredValue(OtherValue{"integer", "1", "<integer>1</integer>"}));
  EXPECT_EQ(valueOf("<integer>-5</integer>"), StoredValue(OtherValue{"integer", "-5", "<integer>-5</integer>"}));
  EXPECT_EQ(valueOf("<array><true/></array>"), StoredValue(OtherValue{"array", "", "<array><true/></array>"}));
  EXPECT_EQ(valueOf("<dict><key>a</key><true/></dict>"),
            StoredValue(OtherValue{"dictionary", "", "<dict><key>a</key><true/></dict>"}));
  EXPECT_EQ(valueOf("<data>AAAA</data>"), StoredValue(OtherValue{"data", "", "<data>AAAA</data>"}));
  EXPECT_EQ(valueOf("<date>2026-11-22T10:00:00Z</date>"),
            StoredValue(OtherValue{"date", "", "<date>2026-11-22T10:00:00Z</date>"}));
}

TEST(PropertyList, whatIsNotThereIsAbsent) {
  const auto values = storedValuesIn(listOf("<dict/>"));
  ASSERT_TRUE(values);
  EXPECT_EQ(*values, core::StoredValues());
}

TEST(PropertyList, takesAnElementThatIsWrittenAsItWouldWriteIt) {
  for (const char* element :
       {"<real>0.15</real>", "<real>nan</real>", "<true/>", "<string>a&#13;\n&lt;&amp;&gt;</string>",
        "<integer>-5</integer>", "<date>2026-11-22T10:00:00Z</date>"}) {
    const auto value = storedValueOf(element);
    ASSERT_TRUE(value) << element;
    EXPECT_EQ(elementOf(*value), element);
  }
  const auto values = storedValuesIn(
      listOf("<dict><key>mineffect</key><array><string>a&#13;b</string><data>AAAA</data></array></dict>"));
  ASSERT_TRUE(values);
  const auto again = storedValueOf(elementOf(values->at(3)));
  ASSERT_TRUE(again);
  EXPECT_EQ(*again, values->at(3));
}

TEST(PropertyList, refusesAnElementThatIsNotWhole) {
  for (const char* element :
       {"", "suck", "<true/><false/>", "<true/><key>a</key><true/>", "<integer>1</integer", "<string>a\r</string>",
        " <true/>", "<real>0.150</real>", "<true/></dict>", "<plist><true/></plist>"}) {
    EXPECT_FALSE(storedValueOf(element)) << element;
  }
}

TEST(PropertyList, refusesWhatIsNoDictionary) {
  for (const std::string& text : {std::string(), std::string("nonsense"), listOf("<array/>")}) {
    EXPECT_FALSE(storedValuesIn(text)) << text;
  }
}

}  // namespace
}  // namespace tarnwell::commandline
