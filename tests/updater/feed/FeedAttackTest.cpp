#include <gtest/gtest.h>
#include <sys/resource.h>

#include <chrono>
#include <functional>
#include <iostream>

#include "fixtures/Subprocess.h"
#include "updater/feed/FeedReader.h"
#include "updater/feed/FeedText.h"

namespace tarnwell::updater {
namespace {

using Clock = std::chrono::steady_clock;

// Generous, for sanitizers on a busy machine; an attack that worked would need minutes or gigabytes.
constexpr auto longestTime = std::chrono::seconds(5);
constexpr long largestGrowth = 64L * 1024;  // KiB.

long peakMemory() {
  rusage usage = {};
  ::getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

/// Hands out the feed piece by piece; empty at its end.
using Source = std::function<std::string_view()>;

/// Exits with 0 when the feed was refused for `reason`, in time and without much memory.
int refuse(const Source& source, const std::string& reason) {
  const long before = peakMemory();
  const auto start = Clock::now();
  FeedReader reader;
  system::Result<void> fed;
  for (std::string_view piece = source(); fed && !piece.empty(); piece = source()) {
    fed = reader.feed(piece);
  }
  const auto end = reader.finish();
  const std::string message = end ? "accepted" : end.error().message;
  const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
  const long growth = peakMemory() - before;
  std::cerr << message << ' ' << took.count() << " ms, " << growth << " KiB more\n";
  return message.find(reason) != std::string::npos && took < longestTime && growth < largestGrowth ? 0 : 1;
}

/// `head` once and then `piece` up to `times` times, without ever being in memory as a whole.
Source endless(std::string head, std::string piece, std::size_t times) {
  return [head = std::move(head), piece = std::move(piece), times, at = std::size_t{0}]() mutable -> std::string_view {
    if (at == times) {
      return {};
    }
    return at++ == 0 ? head : piece;
  };
}

int exitStatusOfAttack(const Source& source, const std::string& reason) {
  return fixtures::exitStatusOf([&] { return refuse(source, reason); });
}

std::string opening() { return "<rss><channel>"; }

TEST(FeedAttack, anEntityBombIsRefusedBeforeItsFuseIsRead) {
  std::string bomb = "<!DOCTYPE rss [<!ENTITY a0 'boom'>";
  for (int level = 1; level < 30; ++level) {
    bomb += "<!ENTITY a" + std::to_string(level) + " '";
    for (int copy = 0; copy < 10; ++copy) {
      bomb += "&a" + std::to_string(level - 1) + ";";
    }
    bomb += "'>";
  }
  bomb += "]><rss><channel><item><title>&a29;</title></item></channel></rss>";
  EXPECT_EQ(exitStatusOfAttack(endless(bomb, "", 1), "document type"), 0);
}

TEST(FeedAttack, anExternalEntityIsNotFetched) {
  const std::string text =
      "<!DOCTYPE rss [<!ENTITY f SYSTEM "
      "'file:///etc/hostname'>]><rss><channel><item><title>&f;</title></item></channel></rss>";
  EXPECT_EQ(exitStatusOfAttack(endless(text, "", 1), "document type"), 0);
}

TEST(FeedAttack, aMillionItemsEndAtTheLimit) {
  EXPECT_EQ(exitStatusOfAttack(endless(opening(), "<item/>", 1'000'000), "more than 1000 items"), 0);
}

TEST(FeedAttack, nestingIsRefusedHoweverDeep) {
  EXPECT_EQ(exitStatusOfAttack(endless(opening(), "<a>", 100'000), "nested too deep"), 0);
  EXPECT_EQ(exitStatusOfAttack(endless("<rss>", "<rss>", 100'000), "nested too deep"), 0);
}

TEST(FeedAttack, aFeedWithoutEndIsCutOff) {
  const std::string megabyte(1024UL * 1024, ' ');
  EXPECT_EQ(exitStatusOfAttack(endless(opening(), megabyte, 10'240), "larger than"), 0);
  EXPECT_EQ(exitStatusOfAttack(endless(opening() + "<!--", megabyte, 10'240), "larger than"), 0);
}

TEST(FeedAttack, aTagThatDripsInTakesNoQuadraticTime) {
  EXPECT_EQ(exitStatusOfAttack(endless(opening() + "<item a='", "a", 2'000'000), "larger than"), 0);
  EXPECT_EQ(exitStatusOfAttack(endless(opening() + "<item", " ", 2'000'000), "larger than"), 0);
}

TEST(FeedAttack, aTagOfAttributesAloneIsRefused) {
  std::string tag = opening() + "<item";
  for (int number = 0; tag.size() < 900'000; ++number) {
    tag += " a" + std::to_string(number) + "='1'";
  }
  EXPECT_EQ(exitStatusOfAttack(endless(tag + "/></channel></rss>", "", 1), "too many attributes"), 0);
}

TEST(FeedAttack, namespacesWithoutEndAreRefused) {
  std::string text = opening();
  while (text.size() < 900'000) {
    text += "<item xmlns:a" + std::to_string(text.size()) + "='urn:" + std::to_string(text.size()) + "'>";
  }
  EXPECT_EQ(exitStatusOfAttack(endless(text, "", 1), "nested too deep"), 0);
}

}  // namespace
}  // namespace tarnwell::updater
