#include "release/text/WebAddress.h"

#include <gtest/gtest.h>

namespace tarnwell::release {
namespace {

TEST(WebAddress, leadsToAPageOfTheWeb) {
  for (const std::string address : {"https://tarnwell.example", "http://tarnwell.example/notes?x=1#y",
                                    "HTTPS://TARNWELL.EXAMPLE/", "https://[::1]:8443/"}) {
    EXPECT_TRUE(isWebAddress(address)) << address;
  }
}

TEST(WebAddress, isNothingElse) {
  for (const std::string address :
       {"", "https", "https:", "https://", "https:///path", "https://:80", "//tarnwell.example",
        "ftp://tarnwell.example", "file:///etc/passwd", "javascript:alert(1)", "data:text/html,x",
        " https://tarnwell.example", "https://tarnwell.example/a b", "https://tarnwell.example/\n",
        "xhttps://tarnwell.example", "https://tarnwell.ex\xc3\xa4mple"}) {
    EXPECT_FALSE(isWebAddress(address)) << address;
  }
}

TEST(WebAddress, namesAHost) {
  EXPECT_EQ(hostIn("https://tarnwell.example/feed.xml"), "tarnwell.example");
  EXPECT_EQ(hostIn("https://tarnwell.example:8443?x"), "tarnwell.example");
  EXPECT_EQ(hostIn("https://tarnwell.example@evil.invalid/"), "evil.invalid");
  EXPECT_EQ(hostIn("https://[::1]:8443/"), "[::1]");
  EXPECT_EQ(hostIn("https://[::1"), "[");
  EXPECT_EQ(hostIn("tarnwell.example"), "");
}

}  // namespace
}  // namespace tarnwell::release
