#include <cstdlib>
#include <string>

#include "updateclient/settings/UpdateSource.h"

namespace tarnwell::updateclient {
namespace {

std::string named(const char* variable) {
  const char* value = ::getenv(variable);
  return value == nullptr ? "" : value;
}

}  // namespace

UpdateSource updateSource() {
  UpdateSource source = {.configuration = UpdaterConfiguration::compiledIn(), .engine = named("TARNWELL_TOUR_ENGINE")};
  source.configuration.feedAddress = named("TARNWELL_TOUR_FEED");
  source.configuration.publicKey = named("TARNWELL_TOUR_KEY");
  source.configuration.userAgent = "Tarnwell/tour";
  source.configuration.stallLimit = std::chrono::seconds(1);
  return source;
}

}  // namespace tarnwell::updateclient
