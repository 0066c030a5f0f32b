#include "profile/exports/plist/Identifier.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace tarnwell::profile {
namespace {

TEST(IdentifierTest, isANameInReverseDnsForm) {
  for (const char* identifier : {"org.example.dock", "a.b", "Org.Example-2.0"}) {
    EXPECT_TRUE(isIdentifier(identifier)) << identifier;
  }
  for (const char* text : {"", "dock", ".", "a.", ".a", "a..b", "a b.c", "a.b\n", "a.<b>", "ä.b"}) {
    EXPECT_FALSE(isIdentifier(text)) << text;
  }
  EXPECT_TRUE(isIdentifier("a." + std::string(253, 'b')));
  EXPECT_FALSE(isIdentifier("a." + std::string(254, 'b')));
}

TEST(IdentifierTest, anIdentifierHasAlwaysTheSameUuid) {
  EXPECT_EQ(uuidOf("org.example.dock"), "2CA69C37-BFBA-85EF-B2CB-1C9B21817386");
}

TEST(IdentifierTest, namesThatAreAlikeHaveDifferentUuids) {
  std::set<std::string> uuids;
  for (int number = 0; number < 10000; ++number) {
    const std::string uuid = uuidOf("a." + std::to_string(number));
    uuids.insert(uuid);
    ASSERT_EQ(uuid.size(), 36);
    // The version, and the variant that it is one of.
    ASSERT_EQ(uuid[14], '8');
    ASSERT_NE(std::string("89AB").find(uuid[19]), std::string::npos);
  }
  EXPECT_EQ(uuids.size(), 10000);
}

}  // namespace
}  // namespace tarnwell::profile
