#include "installation/Programs.h"

#include "installation/FindProgram.h"

namespace tarnwell::installation {
namespace {

constexpr const char* builtHelpers = "libexec";

}  // namespace

system::Result<std::filesystem::path> libexecProgram(const std::filesystem::path& folder, const std::string& program,
                                                     const std::string& name) {
  const auto built = folder / builtHelpers;
  const auto installed = (folder / TARNWELL_LIBEXEC_FROM_BIN / program).lexically_normal();
  for (const auto& candidate : {built / name, installed / name}) {
    if (isProgram(candidate)) {
      return candidate;
    }
  }
  return system::Failure{"no program " + name + " in " + built.string() + " nor in " + installed.string()};
}

std::filesystem::path frontOf(const std::filesystem::path& executable, const std::string& program) {
  const auto folder = executable.parent_path();
  const auto above = folder.parent_path();
  if (folder.filename() != builtHelpers && folder.filename() != program) {
    return executable;
  }
  const auto front = folder.filename() == builtHelpers
                         ? above / program
                         : (above / TARNWELL_BIN_FROM_LIBEXEC / program).lexically_normal();
  return isProgram(front) ? front : executable;
}

}  // namespace tarnwell::installation
