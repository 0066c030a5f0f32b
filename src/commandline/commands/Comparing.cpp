#include "commandline/commands/Comparing.h"

#include "commandline/commands/Change.h"
#include "commandline/commands/Json.h"
#include "commandline/commands/Wanted.h"
#include "commandline/dock/DockStore.h"

namespace tarnwell::commandline {
namespace {

std::string text(const std::optional<profile::Wish>& wish) { return wish ? profile::text(*wish) : "left alone"; }

std::string line(const Session& session, const profile::WishChange& change) {
  return std::string(profile::settings.at(change.setting).key) + ": " + text(change.from) + " -> " +
         session.screen.fresh(text(change.to));
}

std::string line(const Session& session, const profile::Change& change) { return changeLine(session, change); }

template <class Changes>
Status show(const Session& session, const Arguments& arguments, const Changes& changes) {
  if (arguments.has(OptionName::json)) {
    session.screen.addLine(differencesJson(changes));
  } else if (!arguments.has(OptionName::quiet)) {
    for (const auto& change : changes) {
      session.screen.addLine(line(session, change));
    }
  }
  return changes.empty() ? Status::done : Status::no;
}

}  // namespace

Status diff(const Session& session, const Arguments& arguments) {
  const auto first = readProfileFile(arguments.operands.front());
  if (!first) {
    return session.fail(Status::refused, first.error().message);
  }
  if (arguments.operands.size() == 1) {
    return compareWithDock(session, arguments, withoutUnknown(session, *first));
  }
  const auto second = readProfileFile(arguments.operands.back());
  if (!second) {
    return session.fail(Status::refused, second.error().message);
  }
  return show(session, arguments, profile::differences(*first, *second));
}

Status compareWithDock(const Session& session, const Arguments& arguments, const profile::Profile& wanted) {
  const auto preferences = DockStore(session.shell).read();
  if (!preferences) {
    return session.fail(Status::storeFailure, preferences.error().message);
  }
  return show(session, arguments, profile::differences(preferences->values, wanted));
}

}  // namespace tarnwell::commandline
