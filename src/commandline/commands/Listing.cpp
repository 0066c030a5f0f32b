#include "commandline/commands/Listing.h"

#include <algorithm>
#include <vector>

#include "commandline/commands/Description.h"
#include "commandline/commands/Json.h"
#include "commandline/commands/Wanted.h"
#include "commandline/dock/DockStore.h"

namespace tarnwell::commandline {
namespace {

std::string padded(std::string_view key) {
  constexpr std::size_t gap = 3;
  const auto width = std::ranges::max(profile::settings, {}, [](const auto& row) { return row.key.size(); }).key.size();
  return std::string(key).append(width - key.size() + gap, ' ');
}

std::string valueText(const Screen& screen, std::size_t setting, const Description& description) {
  const std::string value = description.value ? profile::text(*description.value) : "";
  switch (description.state) {
    case Description::State::unset:
      return screen.faint(profile::text(profile::Unset()));
    case Description::State::unsupported:
      return screen.faint("not on this system");
    case Description::State::forced:
      return value + screen.striking(" (forced by a configuration profile)");
    case Description::State::wrongType:
      return screen.striking("wrong-type   stored as " + description.stored);
    case Description::State::set:
      break;
  }
  const bool isOwnType = description.stored == typeName(profile::settings.at(setting).type);
  return isOwnType ? value : value + screen.striking("   stored as " + description.stored);
}

}  // namespace

Status list(const Session& session, const Arguments& arguments) {
  const DockStore store(session.shell);
  const auto preferences = store.read();
  if (!preferences) {
    return session.fail(Status::storeFailure, preferences.error().message);
  }
  const auto forced = store.readForced();
  std::vector<Description> descriptions;
  for (std::size_t setting = 0; setting < profile::settings.size(); ++setting) {
    descriptions.push_back(descriptionOf(session, setting, preferences->values.at(setting), forced.at(setting)));
  }
  if (arguments.has(OptionName::json)) {
    session.screen.addLine(listJson(session, descriptions));
    return Status::done;
  }
  for (std::size_t setting = 0; setting < profile::settings.size(); ++setting) {
    session.screen.addLine(padded(profile::settings.at(setting).key) +
                           valueText(session.screen, setting, descriptions.at(setting)));
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
  return session.fail(Status::no,
                      arguments.operands.front() + " is " + shortText(*setting, stored) + "; the Dock decides");
}

}  // namespace tarnwell::commandline
