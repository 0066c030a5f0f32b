#include "publish/Release.h"

#include <string>

#include "release/text/Channels.h"
#include "release/text/PlainLine.h"
#include "release/text/Version.h"
#include "release/text/WebAddress.h"
#include "updater/feed/FeedLimits.h"
#include "updater/notes/Notes.h"
#include "updater/package/PackageClaim.h"
#include "updater/package/PackageKind.h"
#include "updater/signature/PublicKey.h"

namespace tarnwell::publish {
namespace {

using updater::FeedLimits;

std::string quoted(const std::string& text) { return "\"" + text + "\""; }

bool isOneLine(const std::string& text, std::size_t most) { return release::plainLine(text, most) == text; }

system::Result<void> checkVersions(const Release& release) {
  constexpr std::size_t longestShownVersion = 100;
  if (!release::isVersion(release.version)) {
    return system::Failure{
        "version " + quoted(release.version) +
        " would never be offered: it is a digit and up to 99 letters, digits and characters of .-+~_"};
  }
  if (release::compareVersions(release.version, "0") != std::weak_ordering::greater) {
    return system::Failure{"version " + quoted(release.version) + " would never be offered: it is not greater than 0"};
  }
  if (!isOneLine(release.shownVersion, longestShownVersion)) {
    return system::Failure{"the shown version is not one plain line of at most 100 characters"};
  }
  if (!release.minimumSystemVersion.empty() && !release::isNumericVersion(release.minimumSystemVersion)) {
    return system::Failure{"minimum system " + quoted(release.minimumSystemVersion) + " is not a version like 5.10"};
  }
  return {};
}

system::Result<void> checkAddress(const std::string& url) {
  if (!release::isWebAddress(url) || !release::isSecureAddress(url)) {
    return system::Failure{quoted(url) + " is not an address that starts with https://"};
  }
  const std::size_t start = url.find("//") + 2;
  const std::string server = url.substr(start, url.find_first_of("/?#", start) - start);
  if (server.find('@') != std::string::npos) {
    return system::Failure{quoted(url) + " names a user, and the updater asks without one"};
  }
  if (url.size() > FeedLimits::maximumAttributeLength) {
    return system::Failure{"the address is longer than " + std::to_string(FeedLimits::maximumAttributeLength) +
                           " characters"};
  }
  return {};
}

system::Result<void> checkVersionOf(const Package& package, const std::string& offered) {
  const auto* kind = updater::packageKind(package.descriptor());
  if (kind->ownVersion == nullptr) {
    return {};
  }
  const auto own = kind->ownVersion(package.descriptor());
  if (!own) {
    return system::Failure{"the updater would refuse the package: " + own.error().message};
  }
  if (!kind->isVersionOf(*own, offered)) {
    const std::string advice = *own == offered ? ": offer it without the Debian revision" : "";
    return system::Failure{"the package is version " + *own + ", and the updater would not take it for " + offered +
                           advice};
  }
  return {};
}

}  // namespace

system::Result<void> checkRelease(const Release& release) {
  if (auto checked = checkVersions(release); !checked) {
    return checked;
  }
  if (!isOneLine(release.title, FeedLimits::maximumTitleLength)) {
    return system::Failure{"the title is not one plain line of at most " +
                           std::to_string(FeedLimits::maximumTitleLength) + " characters"};
  }
  if (!release.channel.empty() && !release::isChannelName(release.channel)) {
    return system::Failure{"channel " + quoted(release.channel) +
                           " cannot be chosen: its name is up to 50 letters, digits and characters of -_."};
  }
  return checkAddress(release.url);
}

system::Result<void> checkItem(const release::FeedItem& item, const Package& package, const SecretKey& key) {
  if (item.notes.size() > updater::longestNotes) {
    return system::Failure{"the updater shows no more than " + std::to_string(updater::longestNotes) +
                           " bytes of the notes"};
  }
  if (auto checked = checkVersionOf(package, item.version); !checked) {
    return checked;
  }
  const auto claim = updater::PackageClaim::create(item);
  const auto held =
      claim ? claim->hold(*updater::PublicKey::parse(key.publicText()), package.descriptor()) : claim.error();
  return held ? system::Result<void>() : held.error();
}

}  // namespace tarnwell::publish
