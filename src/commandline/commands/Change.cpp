#include "commandline/commands/Change.h"

#include <sys/stat.h>

#include <algorithm>

#include "commandline/commands/Description.h"
#include "commandline/commands/Wanted.h"
#include "commandline/dock/DockRestart.h"
#include "commandline/dock/DockStore.h"
#include "commandline/dock/UndoText.h"
#include "commandline/words/ShellQuotes.h"
#include "installation/StandIns.h"
#include "system/files/AtomicFile.h"
#include "system/processes/SignalPause.h"

namespace tarnwell::commandline {
namespace {

using Changes = std::vector<profile::Change>;

constexpr mode_t ownersAlone = 0600;

// Each before it reads, writes and restarts, and none of these takes longer than its shell may.
constexpr std::chrono::minutes turnPatience{1};

bool hidesOthers(const profile::Change& change) {
  const profile::Setting& row = profile::settings.at(change.setting);
  const auto* wish = std::get_if<profile::Wish>(&change.to);
  const auto meaning = wish != nullptr ? *wish : profile::meaningOf(row, std::get<core::StoredValue>(change.to));
  return row.key == "static-only" && meaning == profile::Wish(true);
}

std::string goalText(const profile::Change& change) {
  const auto* wish = std::get_if<profile::Wish>(&change.to);
  return wish != nullptr ? profile::text(*wish) : shortText(change.setting, std::get<core::StoredValue>(change.to));
}

std::string keyOf(const profile::Change& change) { return std::string(profile::settings.at(change.setting).key); }

/// One change of settings, from what is stored to what is wanted.
class Changing {
 public:
  Changing(const Session& session, const Arguments& arguments, const ChangeMemory& memory)
      : session_(session), arguments_(arguments), memory_(memory), store_(session.shell) {}

  Status perform(Status refusal) const { return refusal; }

  // What this system does not know waits for one that does.
  Status perform(profile::Before wanted) const {
    profile::Before waiting = wanted;
    leaveUnknownOut(session_, wanted);
    for (std::size_t setting = 0; setting < waiting.size(); ++setting) {
      if (wanted.at(setting)) {
        waiting.at(setting).reset();
      }
    }
    return perform(wanted, waiting);
  }

  Status perform(const profile::Profile& wanted) const { return perform(wanted, {}); }

 private:
  /// `waiting` is for a later undo.
  template <class Goals>
  Status perform(const Goals& wanted, const profile::Before& waiting) const {
    const auto preferences = store_.read();
    if (!preferences) {
      return session_.fail(Status::storeFailure, preferences.error().message);
    }
    const Changes changes = profile::differences(preferences->values, wanted);
    if (changes.empty()) {
      mention("nothing to change; Dock not touched");
      return Status::done;
    }
    if (arguments_.has(OptionName::dryRun)) {
      return showLines(changes);
    }
    warnOfForced(changes);
    if (const auto kept = keepAllBefore(changes, preferences->list); !kept) {
      return session_.fail(Status::storeFailure, kept.error().message);
    }
    return write(changes, waiting);
  }

  /// What is said of a change that went well.
  void mention(const std::string& message) const {
    if (!arguments_.has(OptionName::quiet)) {
      session_.screen.say(message);
    }
  }

  Status showLines(const Changes& changes) const {
    session_.screen.addLine(DockStore::lineFor(changes));
    if (!arguments_.has(OptionName::noRestart)) {
      session_.screen.addLine(restartLine);
    }
    return Status::done;
  }

  void warnOfForced(const Changes& changes) const {
    const auto forced = store_.readForced();
    if (!forced) {
      session_.screen.say(forced.error().message);
      return;
    }
    for (const profile::Change& change : changes) {
      if (!std::holds_alternative<core::Absent>(forced->at(change.setting))) {
        session_.screen.say(keyOf(change) +
                            " is forced by a configuration profile; your value counts when that is gone");
      }
    }
  }

  // A Dock that shows running applications alone forgets the others, when icons are moved.
  system::Result<void> keepAllBefore(const Changes& changes, const std::string& list) const {
    if (std::ranges::none_of(changes, hidesOthers)) {
      return {};
    }
    const auto kept = memory_.keepAll(list);
    if (!kept) {
      return kept.error();
    }
    if (*kept) {
      const std::string file = (*kept)->string();
      mention("all settings of the Dock are kept in " + file +
              "; to bring them back: " + inSingleQuotes(installation::defaultsForUser(session_.program)) + " import " +
              DockStore::domain + " " + inSingleQuotes(file));
    }
    return {};
  }

  Status write(const Changes& changes, const profile::Before& waiting) const {
    system::AtomicFile undo(memory_.undoFile(), ownersAlone);
    if (const auto written = undo.write(undoText(undoing(changes, waiting))); !written) {
      return session_.fail(Status::storeFailure, written.error().message);
    }
    const system::SignalPause untilTheDockIsBack;
    const auto written = store_.write(changes);
    const Changes done = written ? changes : thoseDone(changes);
    const auto placed = done.empty() ? system::Result<void>() : undo.place();
    if (!placed) {
      session_.screen.say(placed.error().message + "; undo does not know of this change");
    }
    if (!written) {
      sayWhatIsWritten(written.error(), done);
    }
    const Status restarted = done.empty() ? Status::done : restart();
    if (written) {
      show(changes);
    }
    return written && placed ? restarted : Status::storeFailure;
  }

  profile::Before undoing(const Changes& changes, profile::Before before) const {
    for (const profile::Change& change : changes) {
      if (canBeKept(change.from)) {
        before.at(change.setting) = change.from;
      } else {
        session_.screen.say(keyOf(change) + " was " + shortText(change.setting, change.from) +
                            "; undo will not bring that back");
      }
    }
    return before;
  }

  Changes thoseDone(const Changes& changes) const {
    const auto after = store_.read();
    Changes done;
    if (after) {
      std::ranges::copy_if(changes, std::back_inserter(done), [&](const profile::Change& change) {
        return profile::isDone(change, after->values.at(change.setting));
      });
    }
    return done;
  }

  void sayWhatIsWritten(const system::Failure& failure, const Changes& done) const {
    std::string message = failure.message;
    for (const profile::Change& change : done) {
      message += (change.setting == done.front().setting ? "; written so far: " : ", ") + keyOf(change);
    }
    session_.screen.say(message);
  }

  Status restart() const {
    return arguments_.has(OptionName::noRestart) ? Status::done
                                                 : restartAndTell(session_, arguments_.has(OptionName::quiet));
  }

  void show(const Changes& changes) const {
    if (!arguments_.has(OptionName::quiet)) {
      for (const profile::Change& change : changes) {
        session_.screen.addLine(changeLine(session_, change));
      }
    }
  }

  const Session& session_;
  const Arguments& arguments_;
  const ChangeMemory& memory_;
  DockStore store_;
};

}  // namespace

Status change(const Session& session, const Arguments& arguments, const AskWanted& wanted) {
  auto memory = ChangeMemory::ofUser(session.program);
  if (!memory) {
    return session.fail(Status::storeFailure, memory.error().message);
  }
  if (!arguments.has(OptionName::dryRun)) {
    if (const auto turn = memory->takeTurn(turnPatience); !turn) {
      return session.fail(Status::storeFailure, turn.error().message);
    }
  }
  const Changing changing(session, arguments, *memory);
  return std::visit([&changing](const auto& answer) { return changing.perform(answer); }, wanted(*memory));
}

Status restartAndTell(const Session& session, bool isQuiet) {
  switch (restartDock(session.shell)) {
    case Restart::done:
      return Status::done;
    case Restart::noDock:
      if (!isQuiet) {
        session.screen.say("No Dock is running; the settings hold when it starts.");
      }
      return Status::done;
    case Restart::notBack:
      break;
  }
  return session.fail(Status::noDock,
                      "The Dock has not come back. Log in again, or run: launchctl kickstart "
                      "gui/$UID/com.apple.Dock.agent");
}

std::string changeLine(const Session& session, const profile::Change& change) {
  return keyOf(change) + ": " + shortText(change.setting, change.from) + " -> " +
         session.screen.fresh(goalText(change));
}

}  // namespace tarnwell::commandline
