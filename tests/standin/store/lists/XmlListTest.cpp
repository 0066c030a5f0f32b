#include "standin/store/lists/XmlList.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace tarnwell::standin {
namespace {

TEST(XmlListTest, theCauseIsNamed) {
  for (const auto& [xml, cause] : std::vector<std::pair<std::string, std::string>>{
           {"<dict><key>k</key></dict>", "line 1: the key k has no value"},
           {"<dict><key>k</key><true/><key>k</key><true/></dict>", "line 1: the key k is there twice"},
           {"<color/>", "line 1: <color> is no element of a property list"},
           {"<array><key>k</key></array>", "line 1: <key> is out of place"},
           {"<key>k</key>", "line 1: <key> is out of place"},
           {"<array>x</array>", "line 1: there is text within <array>"},
           {"<dict>x</dict>", "line 1: there is text within <dict>"},
           {"<plist></plist>", "line 1: <plist> does not hold one value"},
           {"<plist><true/>x</plist>", "line 1: <plist> does not hold one value"},
           {R"(<!DOCTYPE plist [<!ENTITY a "b">]><true/>)", "line 1: it declares elements or entities of its own"},
           {R"(<!DOCTYPE plist PUBLIC "a" "b"><string>&c;</string>)", "line 1: the entity c is unknown"},
           {"<true>", "line 1: no element found"},
       }) {
    const auto list = parseXmlList(xml);
    ASSERT_FALSE(list) << xml;
    EXPECT_EQ(list.error().message, cause);
  }
}

TEST(XmlListTest, theCauseIsNamedWithItsLine) {
  const auto list = parseXmlList("<plist>\n<array>\n<real>abc</real>\n</array>\n</plist>");
  ASSERT_FALSE(list);
  EXPECT_EQ(list.error().message, "line 3: what <real> holds cannot be understood");
}

}  // namespace
}  // namespace tarnwell::standin
