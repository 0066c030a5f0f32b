#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace tarnwell::commandline {

enum class OptionName {
  all,
  check,
  color,
  defaultValue,
  dryRun,
  exact,
  help,
  identifier,
  json,
  noRestart,
  output,
  quiet,
  restart,
  strict,
  to,
};

/// What stands at a place of a command line, which is also what a shell may offer there.
enum class Word { nothing, key, setting, profile, shell, format, when, file, text };

struct Option {
  OptionName name;
  std::string_view longName;
  /// None where it is a blank.
  char letter;
  /// What follows it.
  Word value;
  std::string_view help;

  constexpr bool takesValue() const { return value != Word::nothing; }
};

/// In the order in which help names them.
inline constexpr std::array options = {
    Option{OptionName::all, "all", ' ', Word::nothing, "every setting"},
    Option{OptionName::defaultValue, "default", ' ', Word::text, "what to print where there is no value"},
    Option{OptionName::check, "check", ' ', Word::nothing, "change nothing; tell by the status whether anything would"},
    Option{OptionName::dryRun, "dry-run", 'n', Word::nothing, "print the command lines instead of running them"},
    Option{OptionName::noRestart, "no-restart", ' ', Word::nothing, "do not restart the Dock"},
    Option{OptionName::quiet, "quiet", 'q', Word::nothing, "do not print what changes"},
    Option{OptionName::json, "json", ' ', Word::nothing, "print one JSON object"},
    Option{OptionName::to, "to", ' ', Word::format, "the format to write"},
    Option{OptionName::exact, "exact", ' ', Word::nothing, "have what is not set taken away as well"},
    Option{OptionName::identifier, "identifier", ' ', Word::text, "the identifier of a configuration profile"},
    Option{OptionName::restart, "restart", ' ', Word::nothing, "have a tool that restarts nothing restart the Dock"},
    Option{OptionName::output, "output", 'o', Word::file, "write to a file"},
    Option{OptionName::strict, "strict", ' ', Word::nothing, "write nothing where the format cannot say all"},
    Option{OptionName::color, "color", ' ', Word::when, "auto, always or never"},
    Option{OptionName::help, "help", ' ', Word::nothing, "print what the command does and takes"},
};

enum class CommandName { list, get, set, reset, explain, diff, apply, exportProfile, undo, restart, completion };

/// A row of what can be typed.
struct Command {
  CommandName name;
  std::string_view word;
  std::string_view operands;
  std::string_view help;
  Word operand;
  std::size_t fewest;
  std::size_t most;
  /// Apart from those that every command takes.
  std::span<const OptionName> options;
};

std::span<const Command> commands();

/// Whether the option is one of the command's, or of all.
bool takes(const Command& command, OptionName option);

/// What stands for the value of an option where help names it; empty for what is no value of one.
std::string_view placeholder(Word word);

/// What can stand there; empty where that is not a choice of words, and for settings and their values.
std::span<const std::string_view> choices(Word word);

}  // namespace tarnwell::commandline
