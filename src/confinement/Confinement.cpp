#include "confinement/Confinement.h"

#include <sys/resource.h>

#include "confinement/Fences.h"
#include "confinement/Limit.h"
#include "system/Result.h"

namespace tarnwell::confinement {
namespace {

constexpr rlim_t mostDescriptors = 64;

bool limitAll(const Rights& rights) {
  return limitResource(RLIMIT_FSIZE, rights.fileSize) && limitResource(RLIMIT_CPU, rights.seconds) &&
         limitResource(RLIMIT_NOFILE, mostDescriptors) && limitResource(RLIMIT_CORE, 0);
}

}  // namespace

std::vector<std::string> keepOnly(const Rights& rights) {
  std::vector<std::string> missing;
  const auto raise = [&missing](bool isRaised, const char* fence) {
    if (!isRaised) {
      missing.push_back(system::systemFailure(std::string("the update engine works without ") + fence).message);
    }
  };
  raise(refuseNewPrivileges(), "giving up new privileges");
  raise(limitMemory(rights.memory), "a limit of memory");
  raise(limitAll(rights), "limits of time and files");
  raise(fenceFiles(rights), "a fence around files");
  raise(filterSystemCalls(rights), "a filter of system calls");
  return missing;
}

}  // namespace tarnwell::confinement
