#include "confinement/Confinement.h"

#include <sys/resource.h>

#include "confinement/Fences.h"
#include "confinement/Limit.h"
#include "system/base/Result.h"

namespace tarnwell::confinement {
namespace {

constexpr rlim_t mostDescriptors = 64;

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
  raise(limitResource(RLIMIT_FSIZE, rights.fileSize), "a limit of file size");
  raise(limitResource(RLIMIT_NOFILE, mostDescriptors), "a limit of descriptors");
  raise(limitResource(RLIMIT_CORE, 0), "giving up core dumps");
  raise(limitResource(RLIMIT_CPU, rights.seconds), "a limit of processor time");
  raise(limitTime(rights.time), "a limit of time");
  raise(fenceFiles(rights), "a fence around files");
  raise(filterSystemCalls(rights), "a filter of system calls");
  return missing;
}

}  // namespace tarnwell::confinement
