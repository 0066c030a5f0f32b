#include "commandline/dock/ChangeMemory.h"

#include <cerrno>
#include <chrono>

#include "installation/StateFolder.h"
#include "profile/toml/ProfileReader.h"
#include "system/files/AtomicFile.h"
#include "system/files/Folders.h"
#include "system/files/ReadFile.h"

namespace tarnwell::commandline {
namespace {

// Each before it reads, writes and restarts, and none of these takes longer than its shell may.
constexpr std::chrono::minutes turnPatience{1};

}  // namespace

system::Result<ChangeMemory> ChangeMemory::ofUser(const std::string& program) {
  const auto folder = installation::programStateFolder(program);
  if (folder.empty()) {
    return system::Failure{"HOME names no folder for what undo needs"};
  }
  return ChangeMemory(folder);
}

system::Result<void> ChangeMemory::takeTurn() {
  if (!system::makeFolders(folder_)) {
    return system::systemFailure("cannot make " + folder_.string());
  }
  auto turn = system::FileLock::take(folder_ / "lock", turnPatience);
  if (!turn) {
    return turn.error().error == EWOULDBLOCK ? system::Failure{"another process is changing settings"} : turn.error();
  }
  turn_ = *std::move(turn);
  return {};
}

system::Result<profile::Profile> ChangeMemory::beforeLast() const {
  const auto text = system::readFile(undoFile(), profile::largestProfile);
  return text ? profile::readProfile(*text, undoFile().string()) : text.error();
}

system::Result<std::optional<std::filesystem::path>> ChangeMemory::keepAll(const std::string& list) const {
  const auto file = folder_ / "before-static-only.plist";
  std::error_code ignored;
  if (std::filesystem::exists(file, ignored)) {
    return std::optional<std::filesystem::path>();
  }
  const auto written = system::replaceFile(file, list);
  return written ? system::Result<std::optional<std::filesystem::path>>(std::optional(file)) : written.error();
}

}  // namespace tarnwell::commandline
