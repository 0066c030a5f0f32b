#include "updater/transfer/CurlFailure.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace tarnwell::updater {
namespace {

constexpr const char* address = "https://updates.invalid/feed.xml";

std::string sentenceOf(CURLcode code, const std::string& asked = address, std::string_view detail = "the detail") {
  return transferFailure(code, asked, detail, 404).message;
}

TEST(CurlFailure, isASentenceThatNamesTheServer) {
  const std::vector<std::pair<CURLcode, std::string>> rows = {
      {CURLE_UNSUPPORTED_PROTOCOL,
       "The server updates.invalid redirects to an address that is not secure. Updates are fetched over HTTPS only."},
      {CURLE_URL_MALFORMAT, "\"https://updates.invalid/feed.xml\" is not an address that updates can be fetched from."},
      {CURLE_LOGIN_DENIED, "\"https://updates.invalid/feed.xml\" is not an address that updates can be fetched from."},
      {CURLE_COULDNT_RESOLVE_HOST,
       "The server updates.invalid cannot be found. Is this computer connected to the Internet?"},
      {CURLE_COULDNT_RESOLVE_PROXY, "The proxy cannot be found."},
      {CURLE_COULDNT_CONNECT, "The server updates.invalid cannot be reached."},
      {CURLE_OPERATION_TIMEDOUT, "The server updates.invalid takes too long to answer."},
      {CURLE_PEER_FAILED_VERIFICATION, "The server updates.invalid could not prove its identity (the detail)."},
      {CURLE_SSL_CONNECT_ERROR,
       "A secure connection could not be made: the server updates.invalid does not offer one."},
      {CURLE_TOO_MANY_REDIRECTS, "The server updates.invalid redirects too often."},
      {CURLE_FILESIZE_EXCEEDED, "The server updates.invalid sends more than it should."},
      {CURLE_HTTP_RETURNED_ERROR, "The server updates.invalid answered with error 404."},
      {CURLE_PARTIAL_FILE, "The connection to the server updates.invalid was lost."},
      {CURLE_RECV_ERROR, "The connection to the server updates.invalid was lost."},
      {CURLE_SEND_ERROR, "The connection to the server updates.invalid was lost."},
      {CURLE_GOT_NOTHING, "The connection to the server updates.invalid was lost."},
      {CURLE_OUT_OF_MEMORY, "The server updates.invalid could not be asked: the detail."}};
  for (const auto& [code, sentence] : rows) {
    EXPECT_EQ(sentenceOf(code), sentence);
  }
}

TEST(CurlFailure, namesAnAddressThatIsNotSecure) {
  EXPECT_EQ(sentenceOf(CURLE_UNSUPPORTED_PROTOCOL, "http://updates.invalid/feed.xml"),
            "The address http://updates.invalid/feed.xml is not secure. Updates are fetched over HTTPS only.");
}

TEST(CurlFailure, whereThereIsNoHostItIsJustTheServer) {
  EXPECT_EQ(sentenceOf(CURLE_COULDNT_CONNECT, ""), "The server cannot be reached.");
}

TEST(CurlFailure, leavesTheLibrarysOwnHeadingsOut) {
  for (const char* detail : {"SSL certificate problem: expired", "SSL: expired", "expired"}) {
    EXPECT_EQ(sentenceOf(CURLE_PEER_FAILED_VERIFICATION, address, detail),
              "The server updates.invalid could not prove its identity (expired).");
  }
}

TEST(CurlFailure, isOnePlainLineHoweverLongWhatTheServerSaysIs) {
  const std::string sentence = sentenceOf(CURLE_OUT_OF_MEMORY, address, "two\nlines" + std::string(5000, 'x'));
  EXPECT_TRUE(sentence.starts_with("The server updates.invalid could not be asked: two lines"));
  EXPECT_LT(sentence.size(), 1100U);
  const std::string longAddress = sentenceOf(CURLE_URL_MALFORMAT, "https://updates.invalid/" + std::string(5000, 'x'));
  EXPECT_LT(longAddress.size(), 300U);
}

}  // namespace
}  // namespace tarnwell::updater
