#include <sys/utsname.h>

#include "system/base/SystemVersion.h"

namespace tarnwell::system {

// "6.1.0" of "6.1.0-13-amd64": what distributions append says nothing about the system's age.
std::string systemVersion() {
  utsname names = {};
  ::uname(&names);
  const std::string release = names.release;
  return release.substr(0, release.find_first_not_of("0123456789."));
}

}  // namespace tarnwell::system
