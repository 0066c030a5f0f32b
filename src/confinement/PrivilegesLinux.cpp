#include <sys/prctl.h>

#include "confinement/Fences.h"
#include "confinement/Limit.h"

namespace tarnwell::confinement {

bool refuseNewPrivileges() { return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0; }

// A sanitizer's shadow is larger than all memory.
bool limitMemory(std::uint64_t most) { return TARNWELL_IS_SANITIZED || limitResource(RLIMIT_AS, most); }

}  // namespace tarnwell::confinement
