#include "updateclient/settings/UpdaterPreferences.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <map>
#include <system_error>

#include "release/protocol/Message.h"
#include "release/text/Number.h"
#include "release/text/Report.h"
#include "system/files/AtomicFile.h"
#include "system/files/FileLock.h"
#include "system/files/Folders.h"
#include "system/files/ReadFile.h"
#include "system/files/SetAside.h"

namespace tarnwell::updateclient {
namespace {

namespace fs = std::filesystem;

constexpr const char* checksName = "automatic-checks";
constexpr const char* downloadsName = "automatic-downloads";
constexpr const char* lastCheckName = "last-check";
constexpr const char* intervalName = "check-interval";
constexpr const char* skippedName = "skipped-version";
constexpr const char* launchedName = "launched-before";

constexpr const char* yes = "yes";
constexpr const char* no = "no";

constexpr std::size_t largestFile = 64UL * 1024;  // Bytes; a hundred are usual.

using Values = std::map<std::string, std::string>;

system::Failure systemFailure(const std::string& what, const fs::path& path) {
  return system::systemFailure(what + " " + path.string());
}

std::string textOf(const Values& values) {
  std::string text;
  for (const auto& [name, value] : values) {
    text += release::lineOf({name, value});
  }
  return text;
}

/// Nothing for what no program of ours wrote.
std::optional<Values> valuesIn(const std::string& text) {
  Values values;
  release::MessageReader reader;
  const bool isText = reader.take(text, [&values](release::Message message) {
    return values.emplace(std::move(message.word), std::move(message.text)).second;
  });
  return isText && reader.isAtLineEnd() ? std::optional(values) : std::nullopt;
}

/// Nothing stands for a damaged file.
system::Result<std::optional<Values>> loaded(const fs::path& path) {
  const auto content = system::readFile(path, largestFile);
  if (content) {
    return valuesIn(*content);
  }
  switch (content.error().error) {
    case ENOENT:
      return std::optional(Values());
    case EFBIG:
      return std::optional<Values>();
    default:
      return content.error();
  }
}

/// Others have it for a moment; one that keeps it longer, for a second, gets no more of the main thread's time.
system::Result<system::FileLock> locked(const std::string& what, const fs::path& path) {
  const fs::path file = path.parent_path() / ("." + path.filename().string() + ".lock");
  if (!system::makeFolders(path.parent_path())) {
    return systemFailure(what, path);
  }
  auto lock = system::FileLock::take(file, std::chrono::seconds(1));
  if (lock) {
    return lock;
  }
  const int error = lock.error().error;
  return system::Failure{
      what + " " + path.string() + ": " +
      (error == EWOULDBLOCK ? "another program does not let go of it" : std::generic_category().message(error))};
}

system::Result<void> moveAside(const fs::path& path) {
  const auto aside = system::setAside(path);
  if (!aside) {
    return aside.error();
  }
  release::report(system::Failure{path.string() + " is damaged; it is kept as " + aside->string()});
  return ::unlink(path.c_str()) == 0 ? system::Result<void>() : systemFailure("cannot set aside", path);
}

/// What is stored; a damaged file is out of the way afterwards. Only under the lock.
system::Result<Values> mended(const fs::path& path) {
  const auto values = loaded(path);
  if (!values) {
    return values.error();
  }
  if (*values) {
    return **values;
  }
  const auto moved = moveAside(path);
  return moved ? system::Result<Values>(Values()) : moved.error();
}

Values stored(const fs::path& path) {
  if (auto values = loaded(path); values && *values) {
    return **values;
  }
  const auto lock = locked("cannot read", path);
  const auto values = lock ? mended(path) : lock.error();
  if (!values) {
    release::report(values.error());
  }
  return values ? *values : Values();
}

std::optional<bool> flagIn(const std::string& text) {
  return text == yes || text == no ? std::optional(text == yes) : std::nullopt;
}

}  // namespace

std::string UpdaterPreferences::value(const char* name) const { return stored(file_)[name]; }

system::Result<void> UpdaterPreferences::setValue(const char* name, const std::string& value) const {
  const auto lock = locked("cannot write", file_);
  if (!lock) {
    return lock.error();
  }
  auto values = mended(file_);
  if (!values) {
    return values.error();
  }
  (*values)[name] = value;
  return system::replaceFile(file_, textOf(*values));
}

std::optional<bool> UpdaterPreferences::automaticChecks() const { return flagIn(value(checksName)); }

system::Result<void> UpdaterPreferences::setAutomaticChecks(bool checks) const {
  return setValue(checksName, checks ? yes : no);
}

bool UpdaterPreferences::automaticDownloads() const { return flagIn(value(downloadsName)).value_or(false); }

system::Result<void> UpdaterPreferences::setAutomaticDownloads(bool downloads) const {
  return setValue(downloadsName, downloads ? yes : no);
}

std::optional<UpdaterPreferences::Time> UpdaterPreferences::lastCheck() const {
  // The clock counts nanoseconds.
  constexpr std::uint64_t latest = std::chrono::floor<std::chrono::seconds>(Time::max().time_since_epoch()).count();
  const auto seconds = release::numberIn(value(lastCheckName));
  return seconds && *seconds <= latest ? std::optional(Time(std::chrono::seconds(*seconds))) : std::nullopt;
}

system::Result<void> UpdaterPreferences::setLastCheck(Time time) const {
  const auto seconds = std::chrono::floor<std::chrono::seconds>(time.time_since_epoch());
  return setValue(lastCheckName, std::to_string(seconds.count()));
}

std::chrono::seconds UpdaterPreferences::interval() const {
  const auto seconds = release::numberIn(value(intervalName));
  if (!seconds || *seconds > static_cast<std::uint64_t>(longestInterval.count())) {
    return usualInterval;
  }
  return std::max(std::chrono::seconds(*seconds), shortestInterval);
}

std::string UpdaterPreferences::skippedVersion() const { return value(skippedName); }

system::Result<void> UpdaterPreferences::setSkippedVersion(const std::string& version) const {
  return setValue(skippedName, version);
}

bool UpdaterPreferences::hasLaunchedBefore() const { return flagIn(value(launchedName)).value_or(false); }

system::Result<void> UpdaterPreferences::setHasLaunchedBefore() const { return setValue(launchedName, yes); }

}  // namespace tarnwell::updateclient
