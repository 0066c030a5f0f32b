#include "updater/transfer/Download.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "fixtures/EnvironmentScope.h"
#include "updater/transfer/LoopbackServer.h"

namespace tarnwell::updater {
namespace {

constexpr std::uint64_t mebibyte = 1024UL * 1024;

class DownloadTest : public testing::Test {
 protected:
  /// What a download has come to.
  struct Outcome {
    std::string bytes = {};
    std::string failure = {};
  };

  Download download(const std::string& address, std::uint64_t most = mebibyte) const {
    return {.address = address,
            .maximumLength = most,
            .userAgent = "Tarnwell/1.2",
            .authorities = server.authority(),
            .connectLimit = std::chrono::seconds(10)};
  }

  static Outcome run(const Download& download) {
    Outcome outcome;
    const auto done = fetch(download, [&outcome](std::string_view bytes) -> system::Result<void> {
      outcome.bytes += bytes;
      return {};
    });
    outcome.failure = done ? "" : done.error().message;
    return outcome;
  }

  std::string bytesOf(const std::string& address) const { return run(download(address)).bytes; }

  /// Why it failed, empty where it did not. What came all the same is kept.
  std::string refusal(const std::string& address, std::uint64_t most = mebibyte) {
    outcome = run(download(address, most));
    return outcome.failure;
  }

  LoopbackServer server;
  Outcome outcome;
};

TEST_F(DownloadTest, fetchesAFile) {
  const std::string content(300'000, 'x');
  server.serve("file", content);
  const Outcome result = run(download(server.address("/file/file")));
  EXPECT_EQ(result.failure, "");
  EXPECT_EQ(result.bytes, content);
}

TEST_F(DownloadTest, tellsItsNameAndNothingElse) {
  const std::string headers = bytesOf(server.address("/cookie"));
  EXPECT_NE(headers.find("User-Agent: Tarnwell/1.2"), std::string::npos) << headers;
  for (const char* unwanted : {"Cookie", "Authorization", "Accept-Encoding", "Referer"}) {
    EXPECT_EQ(headers.find(unwanted), std::string::npos) << headers;
  }
}

TEST_F(DownloadTest, readsNoPasswordFile) {
  const fixtures::Sandbox home;
  home.write(".netrc", "machine localhost login me password secret\n");
  std::filesystem::permissions(home / ".netrc", std::filesystem::perms::owner_read);
  const fixtures::EnvironmentScope scope("HOME", home.path().string());
  EXPECT_EQ(bytesOf(server.address("/headers")).find("Authorization"), std::string::npos);
  EXPECT_EQ(refusal(server.address("/login")), "The server localhost answered with error 401.");
}

TEST_F(DownloadTest, aNameAndPasswordInAnAddressAreRefused) {
  std::string address = server.address("/headers");
  address.insert(std::string("https://").size(), "me:secret@");
  EXPECT_NE(refusal(address), "");
  EXPECT_EQ(server.requests(), "");
}

TEST_F(DownloadTest, onlyHttpsIsSpoken) {
  server.serve("file", "content");
  const std::string plain = server.address("/file/file", "plain");
  EXPECT_EQ(refusal(plain), "The address " + plain + " is not secure. Updates are fetched over HTTPS only.");
  EXPECT_NE(refusal("file:///etc/hostname"), "");
  EXPECT_NE(refusal("ftp://localhost/x"), "");
  EXPECT_NE(refusal(""), "");
  EXPECT_EQ(server.requests(), "");
}

TEST_F(DownloadTest, aRedirectToLessIsRefused) {
  server.serve("file", "content");
  EXPECT_EQ(refusal(server.address("/insecure/file")),
            "The server localhost redirects to an address that is not secure. Updates are fetched over HTTPS only.");
  EXPECT_NE(refusal(server.address("/local/file")), "");
  EXPECT_EQ(server.requests().find("plain"), std::string::npos);
}

TEST_F(DownloadTest, fiveRedirectsAreFollowedAndSixAreNot) {
  server.serve("file", "content");
  // The last step of the server's count is a redirect, too.
  EXPECT_EQ(bytesOf(server.address("/redirect/4/file")), "content");
  EXPECT_EQ(refusal(server.address("/redirect/5/file")), "The server localhost redirects too often.");
}

TEST_F(DownloadTest, certificatesAreVerified) {
  server.serve("file", "content");
  EXPECT_EQ(refusal(server.address("/file/file", "expired")),
            "The server localhost could not prove its identity (certificate has expired).");
  EXPECT_EQ(refusal(server.address("/file/file", "unknown")),
            "The server localhost could not prove its identity (unable to get local issuer certificate).");
  EXPECT_EQ(refusal(server.address("/file/file", "elsewhere")),
            "The server localhost could not prove its identity (no alternative certificate subject name matches target "
            "host name 'localhost').");
  EXPECT_EQ(server.requests(), "");
}

TEST_F(DownloadTest, moreThanAllowedIsRefusedWhateverWasAnnounced) {
  server.serve("file", std::string(1000, 'x'));
  EXPECT_EQ(refusal(server.address("/file/file"), 1000), "");
  EXPECT_EQ(refusal(server.address("/file/file"), 999), "The server localhost sends more than it should.");
  EXPECT_EQ(outcome.bytes, "");
  EXPECT_EQ(refusal(server.address("/long/file"), 1003), "The server localhost sends more than it should.");
  EXPECT_LE(outcome.bytes.size(), 1003U);
}

TEST_F(DownloadTest, tenGibibytesTakeNeitherTimeNorMemory) {
  const auto began = std::chrono::steady_clock::now();
  rusage before = {};
  rusage after = {};
  ::getrusage(RUSAGE_SELF, &before);
  EXPECT_EQ(refusal(server.address("/endless")), "The server localhost sends more than it should.");
  EXPECT_LE(outcome.bytes.size(), mebibyte);
  EXPECT_EQ(refusal(server.address("/huge")), "The server localhost sends more than it should.");
  EXPECT_EQ(outcome.bytes, "");
  ::getrusage(RUSAGE_SELF, &after);
  EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 32 * 1024);
  EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(10));
}

TEST_F(DownloadTest, aRedirectMaySayLittleBesideWhereItLeads) {
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(refusal(server.address("/aside")), "The server localhost sends more than it should.");
  EXPECT_EQ(refusal(server.address("/aside"), UINT64_MAX / 4), "The server localhost sends more than it should.");
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
  EXPECT_EQ(server.requests().find("/nothing"), std::string::npos);
}

TEST_F(DownloadTest, packedAnswersStayPacked) {
  const Outcome result = run(download(server.address("/packed")));
  EXPECT_EQ(result.failure, "");
  EXPECT_LT(result.bytes.size(), 20'000U);
}

TEST_F(DownloadTest, aConnectionThatEndsEarlyIsAFailure) {
  server.serve("file", "content");
  EXPECT_EQ(refusal(server.address("/short/file")), "The connection to the server localhost was lost.");
}

TEST_F(DownloadTest, anAnswerThatIsNoFileIsAFailure) {
  EXPECT_EQ(refusal(server.address("/nowhere")), "The server localhost answered with error 404.");
  EXPECT_EQ(outcome.bytes, "");
  for (const char* status : {"202", "204", "206", "304", "500"}) {
    EXPECT_EQ(refusal(server.address(std::string("/status/") + status)),
              std::string("The server localhost answered with error ") + status + ".");
    EXPECT_EQ(outcome.bytes, "");
  }
}

TEST_F(DownloadTest, thePageOfAnErrorIsNotWaitedFor) {
  const auto began = std::chrono::steady_clock::now();
  EXPECT_EQ(refusal(server.address("/endless/404")), "The server localhost answered with error 404.");
  EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(5));
}

TEST_F(DownloadTest, aServerThatCannotBeReachedIsAFailure) {
  EXPECT_EQ(refusal("https://localhost:1/"), "The server localhost cannot be reached.");
  // No name server is asked for a label of more than 63 characters.
  const std::string host = std::string(64, 'x') + ".example";
  EXPECT_EQ(refusal("https://" + host),
            "The server " + host + " cannot be found. Is this computer connected to the Internet?");
}

TEST_F(DownloadTest, aTestAuthorityIsNothingToTheSystem) {
  server.serve("file", "content");
  Download trusting = download(server.address("/file/file"));
  trusting.authorities.clear();
  EXPECT_NE(run(trusting).failure, "");
}

TEST_F(DownloadTest, whatGoesOnForTooLongEndsHoweverFastItIs) {
  Download endless = download(server.address("/endless"), UINT64_MAX / 4);
  endless.limit = std::chrono::milliseconds(300);
  std::uint64_t length = 0;
  const auto done = fetch(endless, [&length](std::string_view bytes) -> system::Result<void> {
    length += bytes.size();
    return {};
  });
  EXPECT_GT(length, 0U);
  ASSERT_FALSE(done);
  EXPECT_EQ(done.error().message, "The server localhost takes too long to answer.");
}

TEST_F(DownloadTest, slowDripAndSilenceEndWithTheLimit) {
  server.serve("file", std::string(100'000, 'x'));
  for (const char* path : {"/drip/file", "/silent"}) {
    Download slow = download(server.address(path));
    slow.stallLimit = std::chrono::seconds(1);
    const auto began = std::chrono::steady_clock::now();
    EXPECT_EQ(run(slow).failure, "The server localhost takes too long to answer.");
    EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(10));
  }
}

TEST_F(DownloadTest, theReceiverMayRefuseAndSayWhy) {
  server.serve("file", std::string(100'000, 'x'));
  int calls = 0;
  const auto done = fetch(download(server.address("/file/file")), [&calls](std::string_view) -> system::Result<void> {
    ++calls;
    return system::Failure{"not that"};
  });
  EXPECT_EQ(calls, 1);
  ASSERT_FALSE(done);
  EXPECT_EQ(done.error().message, "not that");
}

}  // namespace
}  // namespace tarnwell::updater
