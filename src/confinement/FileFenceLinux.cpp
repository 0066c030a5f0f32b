#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "confinement/Fences.h"
#include "system/base/Descriptor.h"

namespace tarnwell::confinement {
namespace {

// What newer kernels fence than the headers here know of: the numbers are the kernel's own
// (Documentation/userspace-api/landlock.rst).
constexpr std::uint64_t truncate = 1ULL << 14U;
constexpr std::uint64_t allNetwork = 0b11;  // To bind and to connect, over TCP.
constexpr std::uint64_t allScopes = 0b11;   // Abstract sockets and signals of processes outside.

struct Ruleset {
  std::uint64_t files = 0;
  std::uint64_t network = 0;
  std::uint64_t scopes = 0;
};

constexpr int firstWithRefer = 2;
constexpr int firstWithTruncate = 3;
constexpr int firstWithNetwork = 4;
constexpr int firstWithScopes = 6;

constexpr std::uint64_t reading = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR;
constexpr std::uint64_t starting = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_EXECUTE;
constexpr std::uint64_t writing = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_WRITE_FILE |
                                  LANDLOCK_ACCESS_FS_MAKE_REG | LANDLOCK_ACCESS_FS_REMOVE_FILE | truncate;
/// What can be allowed on a file.
constexpr std::uint64_t ofFiles = starting | LANDLOCK_ACCESS_FS_WRITE_FILE | truncate;

/// Everything that this kernel can fence. Network and scopes are closed where they are not needed: nothing opens them.
Ruleset everything(long version, bool usesNetwork) {
  constexpr std::uint64_t first = LANDLOCK_ACCESS_FS_REFER - 1;
  Ruleset ruleset = {.files = first};
  ruleset.files |= version >= firstWithRefer ? LANDLOCK_ACCESS_FS_REFER : 0;
  ruleset.files |= version >= firstWithTruncate ? truncate : 0;
  ruleset.network = version >= firstWithNetwork && !usesNetwork ? allNetwork : 0;
  ruleset.scopes = version >= firstWithScopes ? allScopes : 0;
  return ruleset;
}

/// Kernels that know less take less of it.
std::size_t sizeFor(long version) {
  if (version >= firstWithScopes) {
    return sizeof(Ruleset);
  }
  return version >= firstWithNetwork ? 2 * sizeof(std::uint64_t) : sizeof(std::uint64_t);
}

class Fence {
 public:
  explicit Fence(bool usesNetwork) {
    const long version = ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    if (version > 0) {
      handled_ = everything(version, usesNetwork);
      rules_ =
          system::Descriptor(static_cast<int>(::syscall(SYS_landlock_create_ruleset, &handled_, sizeFor(version), 0)));
    }
  }

  explicit operator bool() const { return static_cast<bool>(rules_); }

  bool open(int place, std::uint64_t access) const {
    struct stat status = {};
    if (::fstat(place, &status) != 0) {
      return false;
    }
    const std::uint64_t possible = S_ISDIR(status.st_mode) ? handled_.files : handled_.files & ofFiles;
    const landlock_path_beneath_attr rule = {.allowed_access = access & possible, .parent_fd = place};
    return ::syscall(SYS_landlock_add_rule, rules_.number(), LANDLOCK_RULE_PATH_BENEATH, &rule, 0) == 0;
  }

  bool open(const std::filesystem::path& path, std::uint64_t access) const {
    const system::Descriptor place(::open(path.c_str(), O_PATH | O_CLOEXEC));
    return !place || open(place.number(), access);
  }

  bool raise() const { return ::syscall(SYS_landlock_restrict_self, rules_.number(), 0) == 0; }

 private:
  Ruleset handled_;
  system::Descriptor rules_;
};

bool openAll(const Fence& fence, const Rights& rights) {
  bool areOpen = true;
  for (const auto& path : rights.readable) {
    areOpen = fence.open(path, reading) && areOpen;
  }
  for (const auto& program : rights.programs) {
    areOpen = fence.open(program, starting) && areOpen;
  }
  if (rights.readableFile >= 0) {
    areOpen = fence.open(rights.readableFile, reading) && areOpen;
  }
  for (const int folder : rights.writable) {
    areOpen = fence.open(folder, writing) && areOpen;
  }
  return areOpen;
}

}  // namespace

bool fenceFiles(const Rights& rights) {
  const Fence fence(rights.usesNetwork);
  // What could not be opened stays closed; that is no reason to leave everything open.
  const bool areOpen = fence && openAll(fence, rights);
  return fence && fence.raise() && areOpen;
}

}  // namespace tarnwell::confinement
