#include "updateclient/ItemChooser.h"

#include <algorithm>

#include "release/text/PlainLine.h"
#include "release/text/Version.h"
#include "release/text/WebAddress.h"

namespace tarnwell::updateclient {
namespace {

// A feed without a word on systems is a Linux feed, as it is ours.
bool isForLinux(const release::FeedItem& item) {
  return item.enclosure.system.empty() || item.enclosure.system == "linux";
}

bool isNewer(const std::string& version, const std::string& than) {
  return release::compareVersions(version, than) == std::weak_ordering::greater;
}

/// Whether a version may stand in a sentence on the screen as it is.
bool isPresentable(const std::string& version) {
  constexpr std::size_t longest = 100;
  return release::plainLine(version, longest) == version;
}

// What cannot be understood is a system that we do not have.
bool runsOn(const std::string& minimumSystemVersion, const std::string& systemVersion) {
  return minimumSystemVersion.empty() ||
         (release::isNumericVersion(minimumSystemVersion) && !isNewer(minimumSystemVersion, systemVersion));
}

bool leadsSomewhere(const release::FeedItem& item) {
  return item.isInformational ? release::isWebAddress(item.link) : !item.enclosure.url.empty();
}

}  // namespace

bool ItemChooser::suits(const release::FeedItem& item) const {
  const auto& channels = circumstances_.channels;
  return isForLinux(item) && leadsSomewhere(item) && release::isVersion(item.version) &&
         isPresentable(item.shownVersion) && isNewer(item.version, circumstances_.runningVersion) &&
         runsOn(item.minimumSystemVersion, circumstances_.systemVersion) &&
         (item.channel.empty() || std::find(channels.begin(), channels.end(), item.channel) != channels.end());
}

bool ItemChooser::isPassedOver(const release::FeedItem& item) const {
  const auto isNoNewerThan = [&item](const std::string& version) {
    return !version.empty() && !isNewer(item.version, version);
  };
  return circumstances_.origin == UserDriver::Origin::schedule &&
         ((!item.isCritical && isNoNewerThan(circumstances_.skippedVersion)) ||
          isNoNewerThan(circumstances_.handedOverVersion));
}

std::optional<release::FeedItem> ItemChooser::best(const std::vector<release::FeedItem>& items) const {
  const release::FeedItem* best = nullptr;
  for (const release::FeedItem& item : items) {
    if (suits(item) && !isPassedOver(item) && (best == nullptr || isNewer(item.version, best->version))) {
      best = &item;
    }
  }
  return best != nullptr ? std::optional(*best) : std::nullopt;
}

}  // namespace tarnwell::updateclient
