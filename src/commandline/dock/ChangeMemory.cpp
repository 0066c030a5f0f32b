#include "commandline/dock/ChangeMemory.h"

#include <cerrno>

#include "commandline/dock/UndoText.h"
#include "installation/StateFolder.h"
#include "system/files/AtomicFile.h"
#include "system/files/Folders.h"
#include "system/files/ReadFile.h"

namespace tarnwell::commandline {
namespace {

constexpr std::size_t largestUndo = 1048576;

// Older versions have kept a profile, which knows meanings and no types.
constexpr const char* undoProfile = "undo.toml";

}  // namespace

system::Result<ChangeMemory> ChangeMemory::ofUser(const std::string& program) {
  const auto folder = installation::programStateFolder(program);
  if (folder.empty()) {
    return system::Failure{"HOME names no folder for what undo needs"};
  }
  return ChangeMemory(folder);
}

system::Result<void> ChangeMemory::takeTurn(std::chrono::milliseconds patience) {
  if (!system::makeFolders(folder_)) {
    return system::systemFailure("cannot make " + folder_.string());
  }
  auto turn = system::FileLock::take(folder_ / "lock", patience);
  if (!turn) {
    return turn.error().error == EWOULDBLOCK ? system::Failure{"another process is changing settings"} : turn.error();
  }
  turn_ = *std::move(turn);
  return {};
}

system::Result<profile::Before> ChangeMemory::beforeLast() const {
  const auto text = system::readFile(undoFile(), largestUndo);
  const auto profile = folder_ / undoProfile;
  std::error_code ignored;
  if (!text && text.error().error == ENOENT && std::filesystem::exists(profile, ignored)) {
    return system::Failure{profile.string() + " is of an older format; apply takes it as a profile"};
  }
  return text ? readUndo(*text, undoFile().string()) : text.error();
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
