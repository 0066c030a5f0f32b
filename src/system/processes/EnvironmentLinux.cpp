#include <unistd.h>

#include "system/processes/Environment.h"

namespace tarnwell::system {

char** processEnvironment() { return environ; }

}  // namespace tarnwell::system
