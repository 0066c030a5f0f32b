#include "commandline/dock/Shell.h"

#include <chrono>
#include <sstream>

#include "installation/StandIns.h"

namespace tarnwell::commandline {
namespace {

constexpr std::chrono::seconds shellPatience{10};

/// "2026-11-22 10:55:48.932 defaults[21082:21082] " before what a tool says.
std::string_view withoutPrefix(std::string_view line) {
  constexpr std::string_view inTime = "0123456789-:. ";
  const auto name = line.find_first_not_of(inTime);
  const auto end = line.find("] ");
  const bool isPrefixed = name != std::string_view::npos && name > 0 && end != std::string_view::npos &&
                          line.find('[') < end &&
                          line.substr(name, line.find('[') - name).find(' ') == std::string_view::npos;
  return isPrefixed ? line.substr(end + 2) : line;
}

/// One line of all that was said.
std::string reasonIn(const std::string& errors) {
  std::string reason;
  std::istringstream lines(errors);
  for (std::string line; std::getline(lines, line);) {
    const auto said = withoutPrefix(line);
    reason.append(reason.empty() || said.empty() ? "" : "; ").append(said);
  }
  return reason;
}

std::string reasonOf(const system::CheckedRun& run) {
  if (!run.isInTime) {
    return "no answer within " + std::to_string(shellPatience.count()) + " seconds";
  }
  std::string said = reasonIn(run.errors);
  if (!said.empty()) {
    return said;
  }
  const bool isKilled = run.end.how == system::ProcessEnd::How::killed;
  return (isKilled ? "ended by signal " : "ended with status ") + std::to_string(run.end.number);
}

}  // namespace

system::Result<system::CheckedRun> ZshShell::run(const std::string& commandLine) {
  if (const auto placed = isReady_ ? system::Result<void>() : installation::putStandInsFirst(program_); !placed) {
    return placed.error();
  }
  isReady_ = true;
  return system::runChecked({.words = {"/bin/zsh", "-c", commandLine}}, shellPatience);
}

system::Result<std::string> outputOf(Shell& shell, const std::string& commandLine) {
  auto run = shell.run(commandLine);
  if (!run) {
    return run.error();
  }
  if (!run->isInTime || !run->end.isSuccess()) {
    return system::Failure{reasonOf(*run)};
  }
  return std::move(run->output);
}

}  // namespace tarnwell::commandline
