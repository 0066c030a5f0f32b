#include "updater/engine/Jobs.h"

#include <fcntl.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <system_error>

#include "release/protocol/Engine.h"
#include "release/protocol/ItemMessages.h"
#include "release/text/Number.h"
#include "system/base/Descriptor.h"
#include "system/files/AtomicFile.h"
#include "updater/engine/Fences.h"
#include "updater/feed/FeedLimits.h"
#include "updater/feed/FeedReader.h"
#include "updater/notes/Notes.h"
#include "updater/package/PackageClaim.h"
#include "updater/package/PackageKind.h"
#include "updater/transfer/Download.h"

namespace tarnwell::updater {
namespace {

using Arguments = std::vector<std::string>;
using Done = system::Result<void>;

/// Of the largest feed at the speed of a bad connection. A check waits for it, with its button switched off.
constexpr std::chrono::minutes feedLimit(2);
/// The user may be far from any fast network and still want it; that nothing comes ends it much sooner.
constexpr std::chrono::hours packageLimit(24);

/// Of a package that has no old file to take the place of.
constexpr mode_t ownerReads = 0400;

/// How much has come when that is said again: often enough for a bar that moves smoothly.
constexpr std::uint64_t progressSteps = 250;

system::Descriptor duplicate(int number) { return system::Descriptor(::fcntl(number, F_DUPFD_CLOEXEC, 0)); }

// No number is none that suits.
std::uint64_t numberOf(const std::string& text) { return release::numberIn(text).value_or(0); }

/// The user's own authorities, by the name under which the network library's own tool takes them.
std::string authorities() {
  for (const char* variable : {"CURL_CA_BUNDLE", "SSL_CERT_FILE"}) {
    const char* path = ::getenv(variable);
    if (path != nullptr && *path != '\0') {
      return path;
    }
  }
  return {};
}

system::Result<PublicKey> keyIn(const std::string& text) {
  auto key = PublicKey::parse(text);
  return key ? key
             : system::Failure{"This build of " TARNWELL_NAME " cannot verify a newer version: " + key.error().message +
                               "."};
}

// What lacks a signature is refused before the user is asked to install it.
release::FeedItem withObjection(release::FeedItem item) {
  if (const auto claim = PackageClaim::create(item); !claim && !item.isInformational) {
    item.objection = claim.error().message;
  }
  return item;
}

/// What both downloads begin with: address, what the server is told of us, seconds that it may stall.
Download downloadOf(const Arguments& arguments, std::uint64_t maximumLength, std::chrono::milliseconds limit) {
  return {.address = arguments[0],
          .maximumLength = maximumLength,
          .limit = limit,
          .userAgent = arguments[1],
          .authorities = authorities(),
          .stallLimit = std::chrono::seconds(numberOf(arguments[2]))};
}

Done fetchFeed(const Arguments& arguments, const Given& given, const Say& say) {
  if (const auto usable = keyIn(arguments[3]); !usable) {
    return usable.error();
  }
  FeedReader reader;
  const Done fetched = given.fetch(downloadOf(arguments, FeedLimits::maximumLength, feedLimit),
                                   [&reader](std::string_view bytes) { return reader.feed(bytes); });
  const auto items = fetched ? reader.finish() : fetched.error();
  if (!items) {
    return items.error();
  }
  for (const release::FeedItem& item : *items) {
    release::sayItem(withObjection(item), say);
  }
  return {};
}

system::Failure unstored(const system::Failure& failure) {
  return {"The update could not be stored: " + failure.message + ". See to that, and try again."};
}

Done fetchPackage(const Arguments& arguments, const Given& given, const Say& say) {
  const std::uint64_t length = numberOf(arguments[3]);
  const system::Descriptor file = duplicate(given.input);
  std::uint64_t received = 0;
  std::uint64_t said = 0;
  const auto take = [&](std::string_view bytes) -> Done {
    if (bytes.size() > length - received) {
      return thrownAway("it is longer than the feed says");
    }
    if (!file.writeAll(bytes)) {
      return unstored(system::systemFailure("cannot keep the download"));
    }
    received += bytes.size();
    if (received - said >= length / progressSteps) {
      said = received;
      say({release::bytesWord, std::to_string(received)});
    }
    return {};
  };
  Done fetched = given.fetch(downloadOf(arguments, length, packageLimit), take);
  if (fetched && received != length) {
    return thrownAway("it is shorter than the feed says");
  }
  return fetched;
}

struct Order {
  PackageClaim claim;
  PublicKey key;
};

/// What both jobs on a package begin with: version, length, signature, release signature, key.
system::Result<Order> orderIn(const Arguments& arguments) {
  const auto claim = PackageClaim::create({.version = arguments[0],
                                           .enclosure = {.length = numberOf(arguments[1]), .signature = arguments[2]},
                                           .releaseSignature = arguments[3]});
  const auto key = keyIn(arguments[4]);
  if (!claim || !key) {
    return claim ? key.error() : claim.error();
  }
  return Order{.claim = *claim, .key = *key};
}

Done verify(const Arguments& arguments, const Given& given, const Say& say) {
  const auto order = orderIn(arguments);
  const auto kind = order ? order->claim.hold(order->key, given.input) : order.error();
  if (!kind) {
    return kind.error();
  }
  say({release::kindWord, (*kind)->name});
  return {};
}

Done readNotesAloud(const Arguments& /*arguments*/, const Given& given, const Say& say) {
  const system::Descriptor input = duplicate(given.input);
  const auto notes = input.readAll(FeedLimits::maximumNotesLength);
  if (!notes) {
    return system::systemFailure("the release notes cannot be read");
  }
  release::sayNotes(readNotes(*notes), say);
  return {};
}

// What is looked at again is the copy, which no other process has open: it is what was verified, or it is not placed.
Done place(const Arguments& arguments, const Given& given, const Say& /*say*/) {
  const auto order = orderIn(arguments);
  const PackageKind* kind = packageKind(arguments[5]);
  if (!order || kind == nullptr) {
    return order ? unknownKind() : order.error();
  }
  const std::string& target = arguments[6];
  system::AtomicFile copy(duplicate(given.folder), target, ownerReads);
  Done done = copy.copy(given.input);
  if (done) {
    const auto held = order->claim.holdSignatures(order->key, copy.descriptor());
    if (!held || *held != kind) {
      return held ? thrownAway("it is not of the kind that was verified") : held.error();
    }
    done = kind->place(copy, given.folder, target);
  }
  return done ? done : kind->unplaced(target, std::generic_category().message(done.error().error));
}

constexpr std::array jobs = {
    Job{"fetch-feed", 4, feedLimit + std::chrono::minutes(1), &fenceFetching, &fetchFeed},
    Job{"fetch-package", 4, packageLimit + std::chrono::hours(1), &fenceFetching, &fetchPackage},
    Job{"read-notes", 0, std::chrono::seconds(30), &fenceReading, &readNotesAloud},
    Job{"verify", 5, std::chrono::minutes(10), &fenceLooking, &verify},
    Job{"place", 7, std::chrono::minutes(10), &fencePlacing, &place},
};

}  // namespace

const Job* jobCalled(const std::string& name) {
  const auto* found = std::find_if(jobs.begin(), jobs.end(), [&name](const Job& job) { return job.name == name; });
  return found == jobs.end() ? nullptr : found;
}

}  // namespace tarnwell::updater
