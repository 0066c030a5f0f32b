#include <sys/prctl.h>
#include <sys/resource.h>

#include <algorithm>
#include <cerrno>

#include "confinement/Confinement.h"
#include "confinement/FileFence.h"
#include "confinement/SystemCallFilter.h"
#include "system/Result.h"

namespace tarnwell::confinement {
namespace {

constexpr rlim_t mostDescriptors = 64;

// One that is lower already stays as it is.
bool limit(decltype(RLIMIT_AS) resource, rlim_t most) {
  rlimit both = {};
  if (::getrlimit(resource, &both) != 0) {
    return false;
  }
  both.rlim_cur = both.rlim_max = std::min(most, both.rlim_max);
  return ::setrlimit(resource, &both) == 0;
}

// A sanitizer's shadow is larger than all memory.
bool limitMemory(rlim_t most) { return TARNWELL_IS_SANITIZED || limit(RLIMIT_AS, most); }

bool limitAll(const Rights& rights) {
  return limitMemory(rights.memory) && limit(RLIMIT_FSIZE, rights.fileSize) && limit(RLIMIT_CPU, rights.seconds) &&
         limit(RLIMIT_NOFILE, mostDescriptors) && limit(RLIMIT_CORE, 0);
}

}  // namespace

// The filter comes last: it takes away the calls that the others are made with.
std::vector<std::string> keepOnly(const Rights& rights) {
  std::vector<std::string> missing;
  const auto raise = [&missing](bool isRaised, const char* fence) {
    if (!isRaised) {
      missing.push_back(system::systemFailure(std::string("the update engine works without ") + fence).message);
    }
  };
  raise(::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0, "giving up new privileges");
  raise(limitAll(rights), "limits of memory and time");
  raise(fenceFiles(rights), "a fence around files");
  raise(filterSystemCalls(rights), "a filter of system calls");
  return missing;
}

}  // namespace tarnwell::confinement
