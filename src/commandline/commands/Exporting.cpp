#include "commandline/commands/Exporting.h"

#include <fcntl.h>

#include <algorithm>
#include <array>
#include <filesystem>

#include "commandline/commands/Description.h"
#include "commandline/commands/Wanted.h"
#include "commandline/dock/DockStore.h"
#include "profile/exports/Targets.h"
#include "system/base/Descriptor.h"
#include "system/files/AtomicFile.h"
#include "system/files/Folders.h"

namespace tarnwell::commandline {
namespace {

using ReadProfile = std::variant<profile::Profile, Status>;

ReadProfile profileOfDock(const Session& session, const Arguments& arguments) {
  const auto preferences = DockStore(session.shell).read();
  if (!preferences) {
    return session.fail(Status::storeFailure, preferences.error().message);
  }
  const auto missing = arguments.has(OptionName::exact) ? profile::Missing::unset : profile::Missing::leftAlone;
  auto [profile, leftOut] = profile::profileOf(preferences->values, missing);
  for (const std::size_t setting : leftOut) {
    if (session.knows(setting)) {
      session.screen.say(std::string(profile::settings.at(setting).key) + " is " +
                         shortText(setting, preferences->values.at(setting)) + "; left out");
    }
  }
  for (std::size_t setting = 0; setting < profile::settings.size(); ++setting) {
    if (!session.knows(setting)) {
      profile.wishes.at(setting).reset();
    }
  }
  return profile;
}

ReadProfile profileOfFile(const Session& session, const Arguments& arguments) {
  if (arguments.has(OptionName::exact)) {
    return session.fail(Status::refused, "--exact is for what the Dock has, not for a profile.");
  }
  const auto read = readProfileFile(arguments.operands.front());
  return read ? ReadProfile(*read) : session.fail(Status::refused, read.error().message);
}

/// What takes the place of a file would take that of a device or a pipe: these are written to.
system::Result<void> writeTo(const std::string& path, const std::string& text) {
  const auto folder = system::folderOf(path);
  std::error_code error;
  if (!std::filesystem::exists(folder, error) && !error) {
    return system::Failure{"cannot write " + path + ": there is no folder " + folder.string()};
  }
  const auto kind = std::filesystem::status(path, error).type();
  using enum std::filesystem::file_type;
  if (kind != character && kind != block && kind != fifo) {
    return system::replaceFile(path, text);
  }
  const system::Descriptor written(::open(path.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC));
  return written && written.writeAll(text) ? system::Result<void>() : system::systemFailure("cannot write " + path);
}

Status write(const Session& session, const Arguments& arguments, const profile::Export& written) {
  const auto file = arguments.value(OptionName::output);
  if (!file || *file == "-") {
    session.screen.add(written.text);
    return Status::done;
  }
  const auto taken = writeTo(*file, written.text);
  return taken ? Status::done : session.fail(Status::storeFailure, taken.error().message);
}

// The name is one of theirs: others were refused when they were read.
const profile::Target& targetOf(const Arguments& arguments) {
  return *std::ranges::find(profile::targets, arguments.value(OptionName::to).value_or("toml"), &profile::Target::name);
}

/// What the format would make nothing of, if such an option is there.
std::optional<std::string> idleOption(const Arguments& arguments) {
  struct Row {
    OptionName option;
    profile::OwnOption meaning;
    const char* complaint;
  };
  constexpr std::array<Row, 2> rows = {
      {{OptionName::identifier, profile::OwnOption::identifier, "--identifier is for --to mobileconfig alone"},
       {OptionName::restart, profile::OwnOption::restart, "--restart is for --to home-manager alone"}}};
  for (const Row& row : rows) {
    if (arguments.has(row.option) && targetOf(arguments).option != row.meaning) {
      return std::string(row.complaint) + ", not for " + std::string(targetOf(arguments).name) + ".";
    }
  }
  return std::nullopt;
}

Status write(const Session& session, const Arguments& arguments, const profile::Profile& profile) {
  const auto written =
      targetOf(arguments).write(profile, {.identifier = arguments.value(OptionName::identifier).value_or(""),
                                          .restartsDock = arguments.has(OptionName::restart)});
  if (!written) {
    return session.fail(Status::refused, written.error().message);
  }
  for (const std::string& warning : written->warnings) {
    session.screen.say(warning);
  }
  const bool isRefused = arguments.has(OptionName::strict) && !written->warnings.empty();
  return isRefused ? Status::refused : write(session, arguments, *written);
}

}  // namespace

Status exportProfile(const Session& session, const Arguments& arguments) {
  if (const auto idle = idleOption(arguments)) {
    return session.fail(Status::refused, *idle);
  }
  const auto read = arguments.operands.empty() ? profileOfDock(session, arguments) : profileOfFile(session, arguments);
  const auto* refusal = std::get_if<Status>(&read);
  return refusal != nullptr ? *refusal : write(session, arguments, std::get<profile::Profile>(read));
}

}  // namespace tarnwell::commandline
