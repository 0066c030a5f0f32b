#include "commandline/dock/DockStore.h"

#include "commandline/dock/Element.h"
#include "commandline/dock/PropertyList.h"
#include "commandline/words/ShellQuotes.h"

namespace tarnwell::commandline {
namespace {

// The shell knows the user's name, whatever the environment says.
constexpr const char* managedDomain = R"("/Library/Managed Preferences/$USERNAME/com.apple.dock")";

/// What `defaults write` takes behind the key; empty where that shall go.
std::string argumentsFor(const profile::Wish& wish) {
  struct Arguments {
    std::string operator()(profile::Unset) const { return {}; }
    std::string operator()(float) const { return "-float " + text; }
    std::string operator()(bool) const { return "-bool " + text; }
    std::string operator()(core::MinEffect) const { return "-string " + text; }

    std::string text;
  };
  return std::visit(Arguments{profile::text(wish)}, wish);
}

std::string argumentsFor(const core::StoredValue& stored) {
  const std::string element = elementOf(stored);
  return element.empty() ? element : inSingleQuotes(element);
}

std::string lineFor(const profile::Change& change) {
  const std::string key(profile::settings.at(change.setting).key);
  const std::string place = std::string(DockStore::domain) + " " + key;
  const std::string arguments = std::visit([](const auto& to) { return argumentsFor(to); }, change.to);
  return arguments.empty() ? "defaults delete " + place : "defaults write " + place + " " + arguments;
}

system::Result<DockPreferences> preferencesOf(Shell& shell, const std::string& domain) {
  const auto output = outputOf(shell, "defaults export " + domain + " -");
  if (!output) {
    return output.error();
  }
  // A start-up file of the shell may have printed before.
  const auto beginning = output->find("<?xml");
  const std::string list = beginning == std::string::npos ? "" : output->substr(beginning);
  const auto values = storedValuesIn(list);
  return values ? system::Result<DockPreferences>(DockPreferences{.values = *values, .list = list}) : values.error();
}

}  // namespace

system::Result<DockPreferences> DockStore::read() const {
  auto preferences = preferencesOf(shell_, domain);
  return preferences ? preferences : system::Failure{"The settings cannot be read: " + preferences.error().message};
}

system::Result<core::StoredValues> DockStore::readForced() const {
  const auto forced = preferencesOf(shell_, managedDomain);
  if (forced) {
    return forced->values;
  }
  // A tool may fail where there is no profile, or print an empty list.
  const std::string& reason = forced.error().message;
  return reason.find(" does not exist") != std::string::npos
             ? system::Result<core::StoredValues>(core::StoredValues())
             : system::Failure{"What a configuration profile forces cannot be read: " + reason};
}

system::Result<void> DockStore::write(const std::vector<profile::Change>& changes) const {
  const auto output = outputOf(shell_, lineFor(changes));
  return output ? system::Result<void>() : system::Failure{"The settings cannot be written: " + output.error().message};
}

std::string DockStore::lineFor(const std::vector<profile::Change>& changes) {
  std::string line;
  for (const profile::Change& change : changes) {
    line += (line.empty() ? "" : " && ") + commandline::lineFor(change);
  }
  return line;
}

}  // namespace tarnwell::commandline
