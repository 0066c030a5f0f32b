#include "commandline/CommandLine.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <string_view>

#include "commandline/commands/Change.h"
#include "commandline/commands/ChangeCommands.h"
#include "commandline/commands/Comparing.h"
#include "commandline/commands/Exporting.h"
#include "commandline/commands/Listing.h"
#include "commandline/words/Arguments.h"
#include "commandline/words/Completion.h"
#include "commandline/words/Usage.h"
#include "installation/LaunchedAtLogin.h"
#include "installation/MacosVersion.h"
#include "profile/values/Suggestion.h"

namespace tarnwell::commandline {
namespace {

Screen::Colors colorsOf(const Arguments& arguments) {
  const auto when = arguments.value(OptionName::color).value_or("auto");
  return when == "always"  ? Screen::Colors::always
         : when == "never" ? Screen::Colors::never
                           : Screen::Colors::whereShown;
}

Status perform(const Session& session, const Arguments& arguments) {
  switch (arguments.command->name) {
    case CommandName::list:
      return list(session, arguments);
    case CommandName::get:
      return get(session, arguments);
    case CommandName::set:
      return set(session, arguments);
    case CommandName::reset:
      return reset(session, arguments);
    case CommandName::explain:
      return explain(session, arguments);
    case CommandName::diff:
      return diff(session, arguments);
    case CommandName::apply:
      return apply(session, arguments);
    case CommandName::undo:
      return undo(session, arguments);
    case CommandName::restart:
      return restartAndTell(session, false);
    case CommandName::exportProfile:
      return exportProfile(session, arguments);
    case CommandName::completion:
      session.screen.addLine(completion(session.program, arguments.operands.front()));
      return Status::done;
  }
  return Status::refused;
}

/// Whether words and files are all that it takes, which any system has.
bool needsNoSystem(const Arguments& arguments) {
  switch (arguments.command->name) {
    case CommandName::explain:
    case CommandName::completion:
      return true;
    case CommandName::diff:
      return arguments.operands.size() > 1;
    case CommandName::exportProfile:
      return !arguments.operands.empty();
    default:
      return false;
  }
}

Status performCommand(const Product& product, const Arguments& arguments, Screen& screen) {
  if (arguments.has(OptionName::help)) {
    screen.addLine(helpText(product.program, *arguments.command));
    return Status::done;
  }
  ZshShell shell(product.program);
  Session session{.program = product.program, .shell = shell, .screen = screen};
  if (needsNoSystem(arguments)) {
    return perform(session, arguments);
  }
  const auto version = installation::macosVersion();
  if (!version) {
    return session.fail(Status::refused, version.error().message);
  }
  session.system = *version;
  return perform(session, arguments);
}

Status performWords(const Product& product, std::span<const char* const> words, Screen& screen) {
  const auto arguments = parseArguments(product.program, words);
  if (!arguments) {
    screen.say(arguments.error().message);
    return Status::refused;
  }
  screen = Screen(colorsOf(*arguments));
  return performCommand(product, *arguments, screen);
}

constexpr std::array<std::string_view, 2> programOptions = {"--help", "--version"};

/// What was typed begins with no command.
Status performOptions(const Product& product, std::span<const char* const> words, Screen& screen) {
  const std::string word = words.front();
  if (words.size() == 1 && word == "--help") {
    screen.addLine(helpText(product.program, product.summary));
    return Status::done;
  }
  if (words.size() == 1 && word == "--version") {
    screen.addLine(product.program + " " + product.version);
    return Status::done;
  }
  const bool isKnown = std::ranges::count(programOptions, word) != 0 || word == installation::launchedAtLogin;
  screen.say((isKnown ? "There are too many arguments."
                      : '"' + word + "\" is not an argument of " + product.program +
                            profile::suggestion(word, programOptions)) +
             "\n" + usageLine(product.program));
  return Status::refused;
}

bool wantWindow(std::span<const char* const> words) {
  return words.empty() || (words.size() == 1 && std::string_view(words.front()) == installation::launchedAtLogin);
}

}  // namespace

std::optional<int> run(const Product& product, std::span<const char* const> arguments) {
  if (wantWindow(arguments)) {
    return std::nullopt;
  }
  // A parent process may ignore both: one that reads no further ends us, and how our children end has to be known.
  (void)std::signal(SIGPIPE, SIG_DFL);
  (void)std::signal(SIGCHLD, SIG_DFL);
  Screen screen(Screen::Colors::never);
  const bool areOptions = *arguments.front() == '-' || *arguments.front() == '\0';
  const Status status =
      areOptions ? performOptions(product, arguments, screen) : performWords(product, arguments, screen);
  return static_cast<int>(screen.show() ? status : Status::storeFailure);
}

}  // namespace tarnwell::commandline
