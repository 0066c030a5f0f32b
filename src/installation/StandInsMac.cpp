#include "installation/StandIns.h"

namespace tarnwell::installation {

system::Result<void> putStandInsFirst(const std::string& /*program*/) { return {}; }

}  // namespace tarnwell::installation
