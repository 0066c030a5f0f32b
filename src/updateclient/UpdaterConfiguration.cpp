#include "updateclient/UpdaterConfiguration.h"

#include <sys/utsname.h>

#include "release/text/Channels.h"
#include "release/text/WebAddress.h"

namespace tarnwell::updateclient {
namespace {

/// "6.1.0" of "6.1.0-13-amd64": what distributions append says nothing about the system's age.
std::string kernelVersion() {
  utsname names = {};
  ::uname(&names);
  const std::string release = names.release;
  return release.substr(0, release.find_first_not_of("0123456789."));
}

}  // namespace

UpdaterConfiguration UpdaterConfiguration::compiledIn() {
  return {.feedAddress = TARNWELL_FEED_URL,
          .publicKey = TARNWELL_PUBLIC_ED_KEY,
          .userAgent = "Tarnwell/" TARNWELL_VERSION,
          .runningVersion = TARNWELL_VERSION,
          .shownVersion = TARNWELL_VERSION,
          .systemVersion = kernelVersion(),
          .channels = release::channelsIn(TARNWELL_FEED_CHANNELS)};
}

bool UpdaterConfiguration::hasFeed() const {
  return !feedAddress.empty() && !publicKey.empty() && !release::hostIn(feedAddress).ends_with(".example");
}

}  // namespace tarnwell::updateclient
