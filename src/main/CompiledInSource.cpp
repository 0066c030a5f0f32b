#include "updateclient/settings/UpdateSource.h"

namespace tarnwell::updateclient {

UpdateSource updateSource() { return {.configuration = UpdaterConfiguration::compiledIn()}; }

}  // namespace tarnwell::updateclient
