#include "updateclient/settings/UpdaterConfiguration.h"

#include "release/text/Channels.h"
#include "release/text/WebAddress.h"
#include "system/base/SystemVersion.h"

namespace tarnwell::updateclient {

UpdaterConfiguration UpdaterConfiguration::compiledIn() {
  return {.feedAddress = TARNWELL_FEED_URL,
          .publicKey = TARNWELL_PUBLIC_ED_KEY,
          .userAgent = TARNWELL_NAME "/" TARNWELL_VERSION,
          .runningVersion = TARNWELL_VERSION,
          .shownVersion = TARNWELL_VERSION,
          .systemVersion = system::systemVersion(),
          .channels = release::channelsIn(TARNWELL_FEED_CHANNELS)};
}

bool UpdaterConfiguration::hasFeed() const {
  return !feedAddress.empty() && !publicKey.empty() && !release::hostIn(feedAddress).ends_with(".example");
}

}  // namespace tarnwell::updateclient
