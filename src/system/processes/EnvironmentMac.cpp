#include <crt_externs.h>

#include "system/processes/Environment.h"

namespace tarnwell::system {

char** processEnvironment() { return *::_NSGetEnviron(); }

}  // namespace tarnwell::system
