#include "updater/ItemChooser.h"

#include <algorithm>

#include "updater/text/PlainLine.h"
#include "updater/text/Version.h"
#include "updater/text/WebAddress.h"

namespace tarnwell::updater {
namespace {

// A feed without a word on systems is a Linux feed, as it is ours.
bool isForLinux(const FeedItem& item) { return item.enclosure.system.empty() || item.enclosure.system == "linux"; }

bool isNewer(const std::string& version, const std::string& than) {
  return compareVersions(version, than) == std::weak_ordering::greater;
}

/// Whether a version may stand in a sentence on the screen as it is.
bool isPresentable(const std::string& version) {
  constexpr std::size_t longest = 100;
  return plainLine(version, longest) == version;
}

// What cannot be understood is a system that we do not have.
bool runsOn(const std::string& minimumSystemVersion, const std::string& systemVersion) {
  return minimumSystemVersion.empty() ||
         (isNumericVersion(minimumSystemVersion) && !isNewer(minimumSystemVersion, systemVersion));
}

bool leadsSomewhere(const FeedItem& item) {
  return item.isInformational ? isWebAddress(item.link) : !item.enclosure.url.empty();
}

}  // namespace

bool ItemChooser::suits(const FeedItem& item) const {
  const auto& channels = circumstances_.channels;
  return isForLinux(item) && leadsSomewhere(item) && isVersion(item.version) && isPresentable(item.shownVersion) &&
         isNewer(item.version, circumstances_.runningVersion) &&
         runsOn(item.minimumSystemVersion, circumstances_.systemVersion) &&
         (item.channel.empty() || std::find(channels.begin(), channels.end(), item.channel) != channels.end());
}

bool ItemChooser::isPassedOver(const FeedItem& item) const {
  const auto isNoNewerThan = [&item](const std::string& version) {
    return !version.empty() && !isNewer(item.version, version);
  };
  return circumstances_.origin == UserDriver::Origin::schedule &&
         ((!item.isCritical && isNoNewerThan(circumstances_.skippedVersion)) ||
          isNoNewerThan(circumstances_.handedOverVersion));
}

std::optional<FeedItem> ItemChooser::best(const std::vector<FeedItem>& items) const {
  const FeedItem* best = nullptr;
  for (const FeedItem& item : items) {
    if (suits(item) && !isPassedOver(item) && (best == nullptr || isNewer(item.version, best->version))) {
      best = &item;
    }
  }
  return best != nullptr ? std::optional(*best) : std::nullopt;
}

}  // namespace tarnwell::updater
