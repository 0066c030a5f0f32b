#include <cstdlib>
#include <string>

#include "updater/UpdateSource.h"

namespace tarnwell::updater {
namespace {

std::string named(const char* variable) {
  const char* value = ::getenv(variable);
  return value == nullptr ? "" : value;
}

}  // namespace

UpdateSource updateSource() {
  UpdateSource source = {.configuration = UpdaterConfiguration::compiledIn()};
  source.configuration.feedAddress = named("TARNWELL_TOUR_FEED");
  source.configuration.publicKey = named("TARNWELL_TOUR_KEY");
  source.transport = {.userAgent = "Tarnwell/tour",
                      .authorities = named("TARNWELL_TOUR_AUTHORITIES"),
                      .stallLimit = std::chrono::seconds(1)};
  return source;
}

}  // namespace tarnwell::updater
