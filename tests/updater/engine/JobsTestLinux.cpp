#include "updater/engine/Jobs.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/Sandbox.h"
#include "system/base/Descriptor.h"
#include "updater/feed/FeedText.h"
#include "updater/package/PackageClaim.h"
#include "updater/signature/SigningKey.h"

namespace tarnwell::updater {
namespace {

using Messages = std::vector<std::string>;

const std::string appImageStart = std::string(
    "\x7f"
    "ELF\x02\x01\x01\x00"
    "AI\x02",
    11);

constexpr const char* unknownKind =
    "failed The update is neither a Debian package nor an AppImage, and cannot be installed on this system.";

/// Jobs with files and a network of the test's own.
class JobsTest : public testing::Test {
 protected:
  /// What the job says, behind that its failure.
  Messages run(const std::string& name, const std::vector<std::string>& arguments) {
    Messages said;
    const Job& job = *jobCalled(name);
    EXPECT_EQ(arguments.size(), job.parameters);
    const auto done = job.run(arguments, given, [&said](const release::Message& message) {
      said.push_back(message.word + " " + message.text);
    });
    if (!done) {
      said.push_back("failed " + done.error().message);
    }
    return said;
  }

  /// A network that answers with these pieces, and then fails if it is told to.
  void answer(const std::vector<std::string>& pieces, const std::string& failure = "") {
    given.fetch = [=, this](const Download& download, const Received& received) -> system::Result<void> {
      downloads.push_back(download);
      for (const std::string& piece : pieces) {
        if (auto taken = received(piece); !taken) {
          return taken;
        }
      }
      return failure.empty() ? system::Result<void>() : system::Failure{failure};
    };
  }

  void put(const std::string& content) {
    EXPECT_EQ(::ftruncate(input.number(), 0), 0);
    EXPECT_EQ(::lseek(input.number(), 0, SEEK_SET), 0);
    EXPECT_TRUE(input.writeAll(content));
    EXPECT_EQ(::lseek(input.number(), 0, SEEK_SET), 0);
  }
  std::string content() const {
    EXPECT_EQ(::lseek(input.number(), 0, SEEK_SET), 0);
    return *input.readAll();
  }

  Messages verify(const std::string& version, const std::string& file, const std::string& releaseSignature) {
    return run("verify",
               {version, std::to_string(file.size()), key.signatureOf(file), releaseSignature, key.publicText()});
  }
  /// As version 2.0, in a folder of its own.
  Messages place(const std::string& file, const std::string& releaseSignature, const std::string& kind = "app-image") {
    return run("place", {"2.0", std::to_string(file.size()), key.signatureOf(file), releaseSignature, key.publicText(),
                         kind, (sandbox / "Tarnwell.AppImage").string()});
  }
  std::string releaseSignature(const std::string& version) const {
    return key.signatureOf(*releaseText(version, input.number()));
  }

  SigningKey key;
  system::Descriptor input{::memfd_create("input", MFD_CLOEXEC)};
  fixtures::Sandbox sandbox;
  system::Descriptor folder{::open(sandbox.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
  Given given{.input = input.number(), .folder = folder.number()};
  std::vector<Download> downloads;
};

TEST_F(JobsTest, aFeedIsSaidItemByItem) {
  answer(
      {feedOf("<item><x:version>2.0</x:version><enclosure url='https://updates.invalid/p' length='3' x:edSignature='" +
              key.signatureOf("abc") + "'/></item><item><x:version>3.0</x:version></item>")});
  EXPECT_EQ(run("fetch-feed", {"https://updates.invalid/feed", "Tarnwell/1", "30", key.publicText()}),
            (Messages{"item 2.0", "version 2.0", "shown-version 2.0", "address https://updates.invalid/p", "length 3",
                      "signature " + key.signatureOf("abc"), "item 3.0", "version 3.0", "shown-version 3.0",
                      "objection The update cannot be trusted: the signature is missing."}));
  ASSERT_EQ(downloads.size(), 1U);
  EXPECT_EQ(downloads[0].address, "https://updates.invalid/feed");
  EXPECT_EQ(downloads[0].userAgent, "Tarnwell/1");
  EXPECT_EQ(downloads[0].stallLimit, std::chrono::seconds(30));
  EXPECT_EQ(downloads[0].limit, std::chrono::minutes(2));
}

TEST_F(JobsTest, aFeedThatIsRefusedIsNotReadOn) {
  answer({std::string(40'000, '<'), "more"}, "not reached");
  const Messages said = run("fetch-feed", {"https://updates.invalid/feed", "", "30", key.publicText()});
  ASSERT_EQ(said.size(), 1U);
  EXPECT_TRUE(said[0].starts_with("failed The update feed cannot be used: line 1: ")) << said[0];
  answer({"<rss"}, "The connection was lost.");
  EXPECT_EQ(run("fetch-feed", {"https://updates.invalid/feed", "", "30", key.publicText()}),
            Messages{"failed The connection was lost."});
}

TEST_F(JobsTest, aBuildWithAKeyThatIsNoneSendsNoRequest) {
  answer({});
  EXPECT_EQ(
      run("fetch-feed", {"https://updates.invalid/feed", "", "30", "AAAA"}),
      Messages{"failed This build of Tarnwell cannot verify a newer version: the key is not 32 bytes in base64."});
  EXPECT_TRUE(downloads.empty());
}

TEST_F(JobsTest, authoritiesAreThoseOfTheUserWhereThereAreSome) {
  answer({});
  const auto authorities = [this] {
    run("fetch-package", {"https://updates.invalid/p", "Tarnwell/1", "30", "0"});
    return downloads.back().authorities;
  };
  const fixtures::EnvironmentScope first("CURL_CA_BUNDLE", "/first.pem");
  const fixtures::EnvironmentScope second("SSL_CERT_FILE", "/second.pem");
  EXPECT_EQ(authorities(), "/first.pem");
  ::setenv("CURL_CA_BUNDLE", "", 1);
  EXPECT_EQ(authorities(), "/second.pem");
  ::unsetenv("CURL_CA_BUNDLE");
  EXPECT_EQ(authorities(), "/second.pem");
  ::unsetenv("SSL_CERT_FILE");
  EXPECT_EQ(authorities(), "");
}

TEST_F(JobsTest, aLengthThatIsNoNumberIsNone) {
  EXPECT_EQ(run("verify", {"2.0", "three", key.signatureOf("abc"), "", key.publicText()}),
            Messages{"failed The update cannot be trusted: the feed does not say how long it is."});
  answer({});
  EXPECT_EQ(run("fetch-package", {"https://updates.invalid/p", "Tarnwell/1", "30", "three"}), Messages());
}

TEST_F(JobsTest, aPackageIsWrittenAsItComes) {
  answer({"abc", "", "de"});
  EXPECT_EQ(run("fetch-package", {"https://updates.invalid/p", "Tarnwell/1", "30", "5"}),
            (Messages{"bytes 3", "bytes 3", "bytes 5"}));
  EXPECT_EQ(content(), "abcde");
  EXPECT_EQ(downloads.at(0).limit, std::chrono::hours(24));
  EXPECT_EQ(downloads.at(0).maximumLength, 5U);
}

TEST_F(JobsTest, aLargePackageIsSaidInStepsThatCanBeSeen) {
  answer(std::vector<std::string>(10'000, std::string(100, 'x')));
  const Messages said = run("fetch-package", {"https://updates.invalid/p", "", "30", "1000000"});
  EXPECT_LE(said.size(), 250U);
  EXPECT_GE(said.size(), 100U);
  EXPECT_EQ(said.back(), "bytes 1000000");
}

TEST_F(JobsTest, aNetworkThatDeliversTooMuchOrTooLittleIsNotBelieved) {
  const std::string thrownAway = "failed The downloaded update was thrown away, because it cannot be trusted: ";
  answer({"ab", "cd"});
  EXPECT_EQ(run("fetch-package", {"https://updates.invalid/p", "", "30", "3"}).back(),
            thrownAway + "it is longer than the feed says.");
  EXPECT_EQ(run("fetch-package", {"https://updates.invalid/p", "", "30", "5"}).back(),
            thrownAway + "it is shorter than the feed says.");
}

TEST_F(JobsTest, anAppImageIsOneOfTheVersionThatTheKeysOwnerSigned) {
  const std::string image = appImageStart + "content";
  put(image);
  EXPECT_EQ(verify("2.0", image, releaseSignature("2.0")), Messages{"kind app-image"});
  for (const std::string& signature :
       {releaseSignature("1.0"), std::string(), std::string("AAAA"), key.signatureOf(image),
        SigningKey(2).signatureOf(*releaseText("2.0", input.number()))}) {
    EXPECT_EQ(
        verify("2.0", image, signature),
        Messages{"failed The downloaded update was thrown away, because it cannot be trusted: nothing vouches for its "
                 "being version 2.0."});
  }
}

TEST_F(JobsTest, aReleaseSignatureOfAnotherFileVouchesForNothing) {
  put(appImageStart + "one");
  const std::string other = releaseSignature("2.0");
  const std::string image = appImageStart + "two";
  put(image);
  EXPECT_NE(verify("2.0", image, other), Messages{"kind app-image"});
}

TEST_F(JobsTest, whatIsPlacedIsTheCopyThatWasHeldAgainstItsSignatures) {
  const std::string image = appImageStart + "content";
  put(image);
  EXPECT_EQ(place(image, releaseSignature("1.0")),
            Messages{"failed The downloaded update was thrown away, because it cannot be trusted: nothing vouches for "
                     "its being version 2.0."});
  EXPECT_TRUE(std::filesystem::is_empty(sandbox.path()));
  EXPECT_EQ(place(image, releaseSignature("2.0")), Messages());
  EXPECT_EQ(sandbox.read("Tarnwell.AppImage"), image);
  put(appImageStart + "another");
  EXPECT_NE(place(image, releaseSignature("2.0")), Messages());
  EXPECT_EQ(sandbox.read("Tarnwell.AppImage"), image);
}

// Of a file that says something else each time it is looked at, the copy is what counts. This one can be read, but is
// empty for who maps it.
TEST_F(JobsTest, whatIsLookedAtBeforeItIsPlacedIsNotTheFileThatWasCopied) {
  const std::string name =
      "\x7f"
      "ELF----AI\x02-";
  const std::string image = name + "\n";
  put(image);
  const std::string vouching = releaseSignature("2.0");
  std::array<char, 16> previous = {};
  ::prctl(PR_GET_NAME, previous.data());
  ::prctl(PR_SET_NAME, name.c_str());
  const system::Descriptor file(::open("/proc/thread-self/comm", O_RDONLY | O_CLOEXEC));
  given.input = file.number();
  const Messages said = place(image, vouching);
  ::prctl(PR_SET_NAME, previous.data());
  EXPECT_EQ(said, Messages());
  EXPECT_EQ(sandbox.read("Tarnwell.AppImage"), image);
}

TEST_F(JobsTest, aPackageOfAnotherKindThanTheOneThatWasOrderedIsNotPlaced) {
  const std::string image = appImageStart + "content";
  put(image);
  EXPECT_EQ(place(image, releaseSignature("2.0"), "debian"),
            Messages{"failed The downloaded update was thrown away, because it cannot be trusted: it is not of the "
                     "kind that was verified."});
  EXPECT_EQ(place(image, releaseSignature("2.0"), "other"), Messages{unknownKind});
  EXPECT_TRUE(std::filesystem::is_empty(sandbox.path()));
}

TEST_F(JobsTest, whatIsOfNoKindIsRefused) {
  put("text");
  EXPECT_EQ(verify("2.0", "text", ""), Messages{unknownKind});
}

TEST_F(JobsTest, notesAreSaidRunByRun) {
  put("<p>A <b>bold</b> word");
  EXPECT_EQ(run("read-notes", {}), (Messages{"paragraph body 0 0", "run  A ", "run b bold", "run   word"}));
}

TEST_F(JobsTest, thereAreNoOthers) {
  EXPECT_EQ(jobCalled(""), nullptr);
  EXPECT_EQ(jobCalled("fetch"), nullptr);
}

}  // namespace
}  // namespace tarnwell::updater
