#include "host/linux/SearchPath.h"

#include <cstdlib>

#include "host/linux/FindProgram.h"
#include "host/linux/UserEnvironment.h"
#include "system/RunningExecutable.h"

namespace tarnwell::host_linux {
namespace {

constexpr std::string_view systemFolders = "/usr/local/bin:/usr/bin:/bin";

system::Result<void> putFirst(const std::string& folder) {
  if (folder.find(':') != std::string::npos) {
    return system::Failure{"the stand-ins cannot be found in " + folder +
                           ": PATH takes no folder with a colon in its name"};
  }
  keepUserEnvironment();
  const char* before = ::getenv("PATH");
  if (::setenv("PATH", searchPathWith(folder, before == nullptr ? "" : before).c_str(), 1) == 0) {
    return {};
  }
  return system::Failure{"PATH cannot be set"};
}

}  // namespace

system::Result<void> putStandInsFirst(const std::string& program) {
  const auto own = system::runningExecutable();
  if (!own) {
    return own.error();
  }
  const auto standIn = libexecProgram(own->parent_path(), program, "defaults");
  return standIn ? putFirst(standIn->parent_path().string()) : standIn.error();
}

system::Result<std::filesystem::path> libexecProgram(const std::filesystem::path& folder, const std::string& program,
                                                     const std::string& name) {
  const auto built = folder / "libexec";
  const auto installed = (folder / ".." / "libexec" / program).lexically_normal();
  for (const auto& candidate : {built / name, installed / name}) {
    if (isProgram(candidate)) {
      return candidate;
    }
  }
  return system::Failure{"no program " + name + " in " + built.string() + " nor in " + installed.string()};
}

std::string searchPathWith(std::string_view folder, std::string_view before) {
  std::string path(folder);
  std::string_view rest = before.empty() ? systemFolders : before;
  for (bool more = true; more;) {
    const auto end = rest.find(':');
    const auto entry = rest.substr(0, end);
    if (entry != folder) {
      (path += ':') += entry;
    }
    more = end != std::string_view::npos;
    if (more) {
      rest.remove_prefix(end + 1);
    }
  }
  return path;
}

}  // namespace tarnwell::host_linux
