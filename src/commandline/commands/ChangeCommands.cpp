#include "commandline/commands/ChangeCommands.h"

#include <cerrno>

#include "commandline/commands/Change.h"
#include "commandline/commands/Comparing.h"
#include "commandline/commands/Wanted.h"

namespace tarnwell::commandline {
namespace {

Status changeTo(const Session& session, const Arguments& arguments, const system::Result<profile::Profile>& wanted) {
  if (!wanted) {
    return session.fail(Status::refused, wanted.error().message);
  }
  return change(session, arguments, [&wanted](const ChangeMemory&) { return *wanted; });
}

}  // namespace

Status set(const Session& session, const Arguments& arguments) {
  return changeTo(session, arguments, wantedBySetting(session, arguments.operands));
}

Status reset(const Session& session, const Arguments& arguments) {
  const bool areAll = arguments.has(OptionName::all);
  if (areAll != arguments.operands.empty()) {
    return session.fail(Status::refused, areAll ? "--all leaves no setting to name." : "Name settings, or say --all.");
  }
  return changeTo(session, arguments, areAll ? allTakenAway(session) : wantedByTakingAway(session, arguments.operands));
}

Status apply(const Session& session, const Arguments& arguments) {
  const auto read = readProfileFile(arguments.operands.front());
  if (!read) {
    return session.fail(Status::refused, read.error().message);
  }
  const profile::Profile wanted = withoutUnknown(session, *read);
  return arguments.has(OptionName::check) ? compareWithDock(session, arguments, wanted)
                                          : changeTo(session, arguments, wanted);
}

Status undo(const Session& session, const Arguments& arguments) {
  return change(session, arguments, [&](const ChangeMemory& memory) -> Wanted {
    const auto before = memory.beforeLast();
    if (before) {
      return *before;
    }
    return before.error().error == ENOENT ? session.fail(Status::no, "There is no change to take back.")
                                          : session.fail(Status::refused, before.error().message);
  });
}

}  // namespace tarnwell::commandline
