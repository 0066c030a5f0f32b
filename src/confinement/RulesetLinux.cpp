#include "confinement/RulesetLinux.h"

#include <linux/landlock.h>

namespace tarnwell::confinement {
namespace {

constexpr std::uint64_t allNetwork = 0b11;  // To bind and to connect, over TCP.
constexpr std::uint64_t allScopes = 0b11;   // Abstract sockets and signals of processes outside.

constexpr int firstWithRefer = 2;
constexpr int firstWithTruncate = 3;
constexpr int firstWithNetwork = 4;
constexpr int firstWithScopes = 6;

std::uint64_t allFiles(long version) {
  constexpr std::uint64_t first = LANDLOCK_ACCESS_FS_REFER - 1;
  constexpr std::uint64_t second = first | LANDLOCK_ACCESS_FS_REFER;
  if (version >= firstWithTruncate) {
    return second | truncateAccess;
  }
  return version >= firstWithRefer ? second : first;
}

}  // namespace

Ruleset everything(long version, bool usesNetwork) {
  return {.files = allFiles(version),
          .network = version >= firstWithNetwork && !usesNetwork ? allNetwork : 0,
          .scopes = version >= firstWithScopes ? allScopes : 0};
}

std::size_t sizeFor(long version) {
  if (version >= firstWithScopes) {
    return sizeof(Ruleset);
  }
  return version >= firstWithNetwork ? offsetof(Ruleset, scopes) : offsetof(Ruleset, network);
}

}  // namespace tarnwell::confinement
