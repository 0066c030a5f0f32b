#include "commandline/commands/Listing.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "commandline/commands/Description.h"
#include "commandline/commands/Explanation.h"
#include "commandline/commands/Json.h"
#include "commandline/commands/Wanted.h"
#include "commandline/dock/DockRestart.h"
#include "commandline/dock/DockStore.h"

namespace tarnwell::commandline {
namespace {

std::string padded(std::string_view key) {
  constexpr std::size_t gap = 3;
  const auto width = std::ranges::max(profile::settings, {}, [](const auto& row) { return row.key.size(); }).key.size();
  return std::string(key).append(width - key.size() + gap, ' ');
}

std::string valueText(const Screen& screen, const Description& description) {
  using State = Description::State;
  if (description.state == State::unset || description.state == State::unsupported) {
    return screen.faint(description.state == State::unset ? profile::text(profile::Unset()) : "not on this system");
  }
  const bool isForced = description.state == State::forced;
  const std::string remark = description.remark + (isForced ? " (forced by a configuration profile)" : "");
  return (description.value ? profile::text(*description.value) : "") + (remark.empty() ? "" : screen.striking(remark));
}

/// "seconds, 0 to 86400"
std::string valuesText(profile::Type type) {
  switch (type) {
    case profile::Type::seconds:
      return "seconds, 0 to " + std::to_string(profile::mostSeconds);
    case profile::Type::boolean:
      return "true or false";
    case profile::Type::effect:
      return "genie, scale or suck";
  }
  return {};
}

profile::Wish example(profile::Type type) {
  switch (type) {
    case profile::Type::seconds:
      return 0.5F;
    case profile::Type::boolean:
      return true;
    case profile::Type::effect:
      return core::MinEffect::suck;
  }
  return profile::Unset();
}

std::string commandLineOf(std::size_t setting) {
  const profile::Change change{setting, core::Absent(), example(profile::settings.at(setting).type)};
  return DockStore::lineFor({change}) + " && " + restartLine;
}

void addExplanation(const Session& session, std::size_t setting) {
  const profile::Setting& row = profile::settings.at(setting);
  const Explanation& known = explanations.at(setting);
  Screen& screen = session.screen;
  screen.addLine(row.key);
  const auto add = [&screen](std::string_view text) { screen.addLine("  " + std::string(text)); };
  add(known.summary);
  add("type: " + valuesText(row.type));
  add(known.conditions);
  add("the Dock's own value when not set: " + std::string(known.ownValue));
  add("systems: " + std::string(systemsText(row.gate)));
  add("window: " + std::string(known.windowLabel));
  add("command line: " + commandLineOf(setting));
}

}  // namespace

Status list(const Session& session, const Arguments& arguments) {
  const DockStore store(session.shell);
  const auto preferences = store.read();
  if (!preferences) {
    return session.fail(Status::storeFailure, preferences.error().message);
  }
  const auto forced = store.readForced();
  if (!forced) {
    return session.fail(Status::storeFailure, forced.error().message);
  }
  std::vector<Description> descriptions;
  for (std::size_t setting = 0; setting < profile::settings.size(); ++setting) {
    descriptions.push_back(descriptionOf(session, setting, preferences->values.at(setting), forced->at(setting)));
  }
  if (arguments.has(OptionName::json)) {
    session.screen.addLine(listJson(session, descriptions));
    return Status::done;
  }
  for (std::size_t setting = 0; setting < profile::settings.size(); ++setting) {
    session.screen.addLine(padded(profile::settings.at(setting).key) +
                           valueText(session.screen, descriptions.at(setting)));
  }
  return Status::done;
}

Status get(const Session& session, const Arguments& arguments) {
  const auto setting = settingOf(session, arguments.operands.front());
  if (!setting) {
    return session.fail(Status::refused, setting.error().message);
  }
  const auto preferences = DockStore(session.shell).read();
  if (!preferences) {
    return session.fail(Status::storeFailure, preferences.error().message);
  }
  const core::StoredValue& stored = preferences->values.at(*setting);
  if (const auto value = profile::meaningOf(profile::settings.at(*setting), stored)) {
    session.screen.addLine(profile::text(*value));
    return Status::done;
  }
  if (const auto instead = arguments.value(OptionName::defaultValue)) {
    session.screen.addLine(*instead);
    return Status::done;
  }
  const bool isStored = !std::holds_alternative<core::Absent>(stored);
  return session.fail(Status::no, arguments.operands.front() + " is " + shortText(*setting, stored) +
                                      (isStored ? "" : "; the Dock decides"));
}

Status explain(const Session& session, const Arguments& arguments) {
  std::vector<std::size_t> asked(profile::settings.size());
  std::iota(asked.begin(), asked.end(), std::size_t{0});
  if (!arguments.operands.empty()) {
    const auto setting = settingOf(arguments.operands.front());
    if (!setting) {
      return session.fail(Status::refused, setting.error().message);
    }
    asked = {*setting};
  }
  if (arguments.has(OptionName::json)) {
    session.screen.addLine(explanationsJson(asked));
    return Status::done;
  }
  for (const std::size_t setting : asked) {
    if (setting != asked.front()) {
      session.screen.addLine("");
    }
    addExplanation(session, setting);
  }
  return Status::done;
}

}  // namespace tarnwell::commandline
