#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "confinement/Fences.h"
#include "confinement/RulesetLinux.h"
#include "system/base/Descriptor.h"

namespace tarnwell::confinement {
namespace {

constexpr std::uint64_t reading = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR;
constexpr std::uint64_t starting = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_EXECUTE;
constexpr std::uint64_t writing = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_WRITE_FILE |
                                  LANDLOCK_ACCESS_FS_MAKE_REG | LANDLOCK_ACCESS_FS_REMOVE_FILE | truncateAccess;
/// What can be allowed on a file.
constexpr std::uint64_t ofFiles = starting | LANDLOCK_ACCESS_FS_WRITE_FILE | truncateAccess;

class Fence {
 public:
  explicit Fence(bool usesNetwork) : Fence(version(), usesNetwork) {}

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
  Fence(long version, bool usesNetwork)
      : handled_(everything(version, usesNetwork)),
        rules_(static_cast<int>(::syscall(SYS_landlock_create_ruleset, &handled_, sizeFor(version), 0))) {}

  /// Of the kernel's own fence; below none where there is none.
  static long version() { return ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION); }

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
