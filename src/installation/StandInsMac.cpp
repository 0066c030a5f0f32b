#include "installation/StandIns.h"

namespace tarnwell::installation {

system::Result<void> putStandInsFirst(const std::string& /*program*/) { return {}; }

std::string defaultsForUser(const std::string& /*program*/) { return "defaults"; }

}  // namespace tarnwell::installation
