#include "commandline/words/Command.h"

#include <algorithm>
#include <limits>

#include "profile/exports/Targets.h"

namespace tarnwell::commandline {
namespace {

using enum OptionName;

constexpr std::size_t any = std::numeric_limits<std::size_t>::max();

constexpr std::array listOptions = {json};
constexpr std::array getOptions = {defaultValue};
constexpr std::array changeOptions = {dryRun, noRestart, quiet};
constexpr std::array resetOptions = {all, dryRun, noRestart, quiet};
constexpr std::array applyOptions = {check, dryRun, noRestart, quiet};
constexpr std::array exportOptions = {to, exact, identifier, OptionName::restart, output, strict};

constexpr std::array rows = {
    Command{CommandName::list, "list", "", "Show all settings", Word::nothing, 0, 0, listOptions},
    Command{CommandName::get, "get", "KEY", "Print the value of a setting", Word::key, 1, 1, getOptions},
    Command{CommandName::set, "set", "KEY=VALUE...", "Change settings", Word::setting, 1, any, changeOptions},
    Command{CommandName::reset, "reset", "KEY... | --all", "Take settings away: the Dock decides again", Word::key, 0,
            any, resetOptions},
    Command{CommandName::explain, "explain", "[KEY]", "Say what a setting does", Word::key, 0, 1, listOptions},
    Command{CommandName::diff, "diff", "PROFILE [PROFILE]", "Compare a profile with the Dock, or with another",
            Word::profile, 1, 2, listOptions},
    Command{CommandName::apply, "apply", "PROFILE", "Change what differs from a profile", Word::profile, 1, 1,
            applyOptions},
    Command{CommandName::exportProfile, "export", "[PROFILE]", "Write a profile, of the Dock or in another format",
            Word::profile, 0, 1, exportOptions},
    Command{CommandName::undo, "undo", "", "Take back what the last set, reset, apply or undo changed", Word::nothing,
            0, 0, changeOptions},
    Command{CommandName::restart, "restart", "", "Restart the Dock", Word::nothing, 0, 0, {}},
    Command{
        CommandName::completion, "completion", "SHELL", "Print what completes words in a shell", Word::shell, 1, 1, {}},
};

}  // namespace

std::span<const Command> commands() { return rows; }

bool takes(const Command& command, OptionName option) {
  return option == color || option == OptionName::help || std::ranges::count(command.options, option) != 0;
}

std::string_view placeholder(Word word) {
  switch (word) {
    case Word::format:
      return "FORMAT";
    case Word::when:
      return "WHEN";
    case Word::file:
      return "FILE";
    case Word::text:
      return "TEXT";
    default:
      return "";
  }
}

std::span<const std::string_view> choices(Word word) {
  static constexpr std::array<std::string_view, 3> shells = {"bash", "zsh", "fish"};
  static constexpr std::array<std::string_view, 3> times = {"auto", "always", "never"};
  static const auto formats = [] {
    std::array<std::string_view, profile::targets.size()> names;
    std::ranges::transform(profile::targets, names.begin(), &profile::Target::name);
    return names;
  }();
  switch (word) {
    case Word::shell:
      return shells;
    case Word::when:
      return times;
    case Word::format:
      return formats;
    default:
      return {};
  }
}

}  // namespace tarnwell::commandline
