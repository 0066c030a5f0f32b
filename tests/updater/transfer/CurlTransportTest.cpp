#include "updater/transfer/CurlTransport.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/resource.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/WaitFor.h"
#include "updater/transfer/LoopbackServer.h"

namespace tarnwell::updater {
namespace {

constexpr std::uint64_t mebibyte = 1024 * 1024;

class CurlTransportTest : public testing::Test {
 protected:
  /// What a transfer has come to.
  struct Outcome {
    std::string bytes = {};
    bool isFinished = false;
    std::optional<system::Failure> failure = {};
  };

  CurlTransportTest() { transport_ = makeTransport({.userAgent = "Tarnwell/1.2", .authorities = server.authority()}); }

  static std::unique_ptr<CurlTransport> makeTransport(CurlTransport::Settings settings) {
    settings.connectLimit = std::chrono::seconds(10);
    return std::make_unique<CurlTransport>(std::move(settings));
  }

  void useShortLimits() {
    transport_ = makeTransport({.authorities = server.authority(), .stallLimit = std::chrono::seconds(1)});
  }

  void useLibrary(const std::string& name) {
    transport_ = makeTransport({.library = name, .authorities = server.authority()});
  }

  /// What a host's loop does.
  bool becomes(const std::function<bool()>& condition) {
    return fixtures::waitFor([&] {
      pollfd ready = {.fd = transport_->descriptor(), .events = POLLIN, .revents = 0};
      if (::poll(&ready, 1, 0) > 0) {
        transport_->dispatch();
      }
      return condition();
    });
  }

  std::unique_ptr<Transport::Transfer> begin(const std::string& address, std::uint64_t most = mebibyte) {
    outcome = {};
    return transport_->get(
        {.address = address, .maximumLength = most},
        [this](std::string_view bytes) {
          EXPECT_FALSE(outcome.isFinished);
          outcome.bytes += bytes;
          return true;
        },
        [this](const std::optional<system::Failure>& failure) {
          EXPECT_FALSE(outcome.isFinished);
          outcome.isFinished = true;
          outcome.failure = failure;
        });
  }

  Outcome fetch(const std::string& address, std::uint64_t most = mebibyte) {
    const auto transfer = begin(address, most);
    EXPECT_TRUE(becomes([this] { return outcome.isFinished; }));
    return outcome;
  }

  /// Why nothing came, empty when something did.
  std::string refusal(const std::string& address, std::uint64_t most = mebibyte) {
    const Outcome result = fetch(address, most);
    return result.failure ? result.failure->message : "";
  }

  void drop() { transport_.reset(); }
  CurlTransport& transport() { return *transport_; }

  LoopbackServer server;
  Outcome outcome;

 private:
  std::unique_ptr<CurlTransport> transport_;
};

TEST_F(CurlTransportTest, fetchesAFile) {
  const std::string content(300'000, 'x');
  server.serve("file", content);
  const Outcome result = fetch(server.address("/file/file"));
  EXPECT_FALSE(result.failure) << result.failure->message;
  EXPECT_EQ(result.bytes, content);
}

TEST_F(CurlTransportTest, nothingIsCalledBeforeGetReturns) {
  const auto transfer = begin("https://");
  EXPECT_FALSE(outcome.isFinished);
  EXPECT_TRUE(becomes([this] { return outcome.isFinished; }));
}

TEST_F(CurlTransportTest, withoutTheNetworkLibraryATransferFailsInPlainWords) {
  useLibrary("libtarnwell-none.so.4");
  const std::string reason = refusal(server.address("/headers"));
  EXPECT_TRUE(
      reason.starts_with("Updates are fetched with the network library libtarnwell-none.so.4, which this "
                         "system does not have: "))
      << reason;
  EXPECT_NE(refusal(server.address("/headers")), "");
  EXPECT_EQ(server.requests(), "");
}

TEST_F(CurlTransportTest, aLibraryThatIsAnotherOneIsNotUsed) {
  useLibrary("libdl.so.2");
  EXPECT_NE(refusal(server.address("/headers")), "");
}

TEST_F(CurlTransportTest, aLibraryThatIsTooOldIsNotUsed) {
  useLibrary(OLD_NETWORK_LIBRARY);
  EXPECT_EQ(refusal(server.address("/headers")),
            "Updates are fetched with version 7.87 of the network library or a later one, and this system has 7.86.0.");
  EXPECT_EQ(server.requests(), "");
}

TEST_F(CurlTransportTest, aTransferThatCannotBeginIsCancelledLikeAnyOther) {
  useLibrary("libtarnwell-none.so.4");
  begin(server.address("/headers")).reset();
  const auto second = begin(server.address("/headers"));
  EXPECT_TRUE(becomes([this] { return outcome.isFinished; }));
}

TEST_F(CurlTransportTest, tellsItsNameAndNothingElse) {
  const std::string headers = fetch(server.address("/cookie")).bytes;
  EXPECT_NE(headers.find("User-Agent: Tarnwell/1.2"), std::string::npos) << headers;
  for (const char* unwanted : {"Cookie", "Authorization", "Accept-Encoding", "Referer"}) {
    EXPECT_EQ(headers.find(unwanted), std::string::npos) << headers;
  }
}

TEST_F(CurlTransportTest, readsNoPasswordFile) {
  const fixtures::Sandbox home;
  home.write(".netrc", "machine localhost login me password secret\n");
  std::filesystem::permissions(home / ".netrc", std::filesystem::perms::owner_read);
  const fixtures::EnvironmentScope scope("HOME", home.path().string());
  EXPECT_EQ(fetch(server.address("/headers")).bytes.find("Authorization"), std::string::npos);
  EXPECT_EQ(refusal(server.address("/login")), "The server localhost answered with error 401.");
}

TEST_F(CurlTransportTest, aNameAndPasswordInAnAddressAreRefused) {
  std::string address = server.address("/headers");
  address.insert(std::string("https://").size(), "me:secret@");
  EXPECT_NE(refusal(address), "");
  EXPECT_EQ(server.requests(), "");
}

TEST_F(CurlTransportTest, onlyHttpsIsSpoken) {
  server.serve("file", "content");
  const std::string plain = server.address("/file/file", "plain");
  EXPECT_EQ(refusal(plain), "The address " + plain + " is not secure. Updates are fetched over HTTPS only.");
  EXPECT_NE(refusal("file:///etc/hostname"), "");
  EXPECT_NE(refusal("ftp://localhost/x"), "");
  EXPECT_NE(refusal(""), "");
  EXPECT_EQ(server.requests(), "");
}

TEST_F(CurlTransportTest, aRedirectToLessIsRefused) {
  server.serve("file", "content");
  EXPECT_EQ(refusal(server.address("/insecure/file")),
            "The server localhost redirects to an address that is not secure. Updates are fetched over HTTPS only.");
  EXPECT_NE(refusal(server.address("/local/file")), "");
  EXPECT_EQ(server.requests().find("plain"), std::string::npos);
}

TEST_F(CurlTransportTest, fiveRedirectsAreFollowedAndSixAreNot) {
  server.serve("file", "content");
  // The last step of the server's count is a redirect, too.
  EXPECT_EQ(fetch(server.address("/redirect/4/file")).bytes, "content");
  EXPECT_EQ(refusal(server.address("/redirect/5/file")), "The server localhost redirects too often.");
}

TEST_F(CurlTransportTest, certificatesAreVerified) {
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

TEST_F(CurlTransportTest, aTestAuthorityIsNothingToTheSystem) {
  server.serve("file", "content");
  useShortLimits();
  const auto other = makeTransport({});
  bool isFinished = false;
  std::string why;
  const auto transfer = other->get(
      {.address = server.address("/file/file"), .maximumLength = mebibyte}, [](std::string_view) { return true; },
      [&](const std::optional<system::Failure>& failure) {
        isFinished = true;
        why = failure ? failure->message : "";
      });
  EXPECT_TRUE(fixtures::waitFor([&] {
    other->dispatch();
    return isFinished;
  }));
  EXPECT_NE(why, "");
}

TEST_F(CurlTransportTest, moreThanAllowedIsRefusedWhateverWasAnnounced) {
  server.serve("file", std::string(1000, 'x'));
  EXPECT_EQ(refusal(server.address("/file/file"), 1000), "");
  EXPECT_EQ(refusal(server.address("/file/file"), 999), "The server localhost sends more than it should.");
  EXPECT_EQ(outcome.bytes, "");
  EXPECT_EQ(refusal(server.address("/long/file"), 1003), "The server localhost sends more than it should.");
  EXPECT_LE(outcome.bytes.size(), 1003U);
}

TEST_F(CurlTransportTest, tenGibibytesTakeNeitherTimeNorMemory) {
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

TEST_F(CurlTransportTest, aRedirectMaySayLittleBesideWhereItLeads) {
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(refusal(server.address("/aside")), "The server localhost sends more than it should.");
  EXPECT_EQ(refusal(server.address("/aside"), UINT64_MAX / 4), "The server localhost sends more than it should.");
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
  EXPECT_EQ(server.requests().find("/nothing"), std::string::npos);
}

TEST_F(CurlTransportTest, packedAnswersStayPacked) {
  const Outcome result = fetch(server.address("/packed"));
  EXPECT_FALSE(result.failure);
  EXPECT_LT(result.bytes.size(), 20'000U);
}

TEST_F(CurlTransportTest, aConnectionThatEndsEarlyIsAFailure) {
  server.serve("file", "content");
  EXPECT_EQ(refusal(server.address("/short/file")), "The connection to the server localhost was lost.");
}

TEST_F(CurlTransportTest, anAnswerThatIsNoFileIsAFailure) {
  EXPECT_EQ(refusal(server.address("/nowhere")), "The server localhost answered with error 404.");
  EXPECT_EQ(outcome.bytes, "");
  for (const char* status : {"202", "204", "206", "304", "500"}) {
    EXPECT_EQ(refusal(server.address(std::string("/status/") + status)),
              std::string("The server localhost answered with error ") + status + ".");
    EXPECT_EQ(outcome.bytes, "");
  }
}

TEST_F(CurlTransportTest, aServerThatCannotBeReachedIsAFailure) {
  EXPECT_EQ(refusal("https://localhost:1/"), "The server localhost cannot be reached.");
  // No name server is asked for a label of more than 63 characters.
  const std::string host = std::string(64, 'x') + ".example";
  EXPECT_EQ(refusal("https://" + host),
            "The server " + host + " cannot be found. Is this computer connected to the Internet?");
}

TEST_F(CurlTransportTest, whatGoesOnForTooLongEndsHoweverFastItIs) {
  outcome = {};
  const auto transfer = transport().get(
      {.address = server.address("/endless"), .maximumLength = UINT64_MAX / 4, .limit = std::chrono::milliseconds(300)},
      [this](std::string_view bytes) {
        outcome.bytes.assign(bytes);
        return true;
      },
      [this](const std::optional<system::Failure>& failure) {
        outcome.isFinished = true;
        outcome.failure = failure;
      });
  EXPECT_TRUE(becomes([this] { return outcome.isFinished; }));
  EXPECT_FALSE(outcome.bytes.empty());
  ASSERT_TRUE(outcome.failure);
  EXPECT_EQ(outcome.failure->message, "The server localhost takes too long to answer.");
}

TEST_F(CurlTransportTest, slowDripAndSilenceEndWithTheLimit) {
  useShortLimits();
  server.serve("file", std::string(100'000, 'x'));
  const auto began = std::chrono::steady_clock::now();
  std::vector<std::string> reasons;
  std::vector<std::unique_ptr<Transport::Transfer>> transfers;
  for (const char* path : {"/drip/file", "/silent"}) {
    transfers.push_back(transport().get(
        {.address = server.address(path), .maximumLength = mebibyte}, [](std::string_view) { return true; },
        [&](const std::optional<system::Failure>& failure) { reasons.push_back(failure ? failure->message : ""); }));
  }
  EXPECT_TRUE(becomes([&] { return reasons.size() == 2; }));
  EXPECT_EQ(reasons, std::vector<std::string>(2, "The server localhost takes too long to answer."));
  EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(10));
}

TEST_F(CurlTransportTest, aDestroyedTransferCallsNothing) {
  server.serve("file", std::string(100'000, 'x'));
  auto transfer = begin(server.address("/half/file"));
  EXPECT_TRUE(becomes([this] { return outcome.bytes.size() == 50'000; }));
  transfer.reset();
  outcome = {};
  // A later transfer runs its whole course meanwhile.
  bool isFinished = false;
  const auto next = transport().get(
      {.address = server.address("/file/file"), .maximumLength = mebibyte}, [](std::string_view) { return true; },
      [&](const std::optional<system::Failure>& /*failure*/) { isFinished = true; });
  EXPECT_TRUE(becomes([&] { return isFinished; }));
  EXPECT_EQ(outcome.bytes, "");
  EXPECT_FALSE(outcome.isFinished);
}

TEST_F(CurlTransportTest, theReceiverMayStopOrDestroyTheTransfer) {
  server.serve("file", std::string(100'000, 'x'));
  int calls = 0;
  std::optional<system::Failure> failure = system::Failure{"none yet"};
  auto stopped = transport().get(
      {.address = server.address("/file/file"), .maximumLength = mebibyte},
      [&](std::string_view) { return ++calls == 0; },
      [&](const std::optional<system::Failure>& result) { failure = result; });
  EXPECT_TRUE(becomes([&] { return !failure.has_value(); }));
  EXPECT_EQ(calls, 1);

  std::unique_ptr<Transport::Transfer> destroyed;
  destroyed = transport().get(
      {.address = server.address("/file/file"), .maximumLength = mebibyte},
      [&](std::string_view) {
        ++calls;
        destroyed.reset();
        return true;
      },
      [](const std::optional<system::Failure>& /*failure*/) { ADD_FAILURE(); });
  EXPECT_TRUE(becomes([&] { return calls == 2; }));
  EXPECT_EQ(fetch(server.address("/file/file")).bytes.size(), 100'000U);
  EXPECT_EQ(calls, 2);
}

TEST_F(CurlTransportTest, whatIsCalledAtTheEndMayEndEverything) {
  server.serve("file", "content");
  std::unique_ptr<Transport::Transfer> transfer;
  bool isFinished = false;
  transfer = transport().get(
      {.address = server.address("/file/file"), .maximumLength = mebibyte}, [](std::string_view) { return true; },
      [&](const std::optional<system::Failure>& /*failure*/) {
        transfer.reset();
        drop();
        isFinished = true;
      });
  EXPECT_TRUE(becomes([&] { return isFinished; }));
}

TEST_F(CurlTransportTest, transfersRunSideBySide) {
  server.serve("file", std::string(200'000, 'x'));
  int finished = 0;
  std::vector<std::unique_ptr<Transport::Transfer>> transfers;
  for (int index = 0; index < 4; ++index) {
    transfers.push_back(transport().get(
        {.address = server.address("/slow/file"), .maximumLength = mebibyte}, [](std::string_view) { return true; },
        [&](const std::optional<system::Failure>& failure) { finished += failure ? 0 : 1; }));
  }
  EXPECT_TRUE(becomes([&] { return finished == 4; }));
}

TEST_F(CurlTransportTest, itsSocketsAreClosedInChildren) {
  server.serve("file", std::string(100'000, 'x'));
  const auto transfer = begin(server.address("/half/file"));
  EXPECT_TRUE(becomes([this] { return outcome.bytes.size() == 50'000; }));
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code error;
    const auto target = std::filesystem::read_symlink(entry, error).string();
    const int number = std::stoi(entry.path().filename().string());
    if (number > 2 && target.starts_with("socket:")) {
      EXPECT_NE(::fcntl(number, F_GETFD) & FD_CLOEXEC, 0) << number << " " << target;
    }
  }
}

}  // namespace
}  // namespace tarnwell::updater
