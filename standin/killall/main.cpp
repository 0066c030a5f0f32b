/// A stand-in for the `killall` tool of macOS: ends the processes of a name, of those that belong to the same played
/// system, which are those with the same MACOS_ROOT. So it never ends a program of the same name that has nothing to do
/// with it. It differs from the original in these points:
///   - It sends no signal but SIGTERM, and has none of the original's options but -s, -q and -u.
///   - Several that run at once take turns, and each meets a Dock that was not yet asked to end: where each of many
///     settings restarts the Dock, the Dock is restarted as many times.

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "diagnostics/Console.h"
#include "diagnostics/StandardStreams.h"
#include "standin/store/SystemRoot.h"
#include "system/events/FolderWatch.h"
#include "system/files/FileLock.h"
#include "system/processes/RunningProcess.h"

namespace tarnwell::standin {
namespace {

constexpr std::string_view usageText = R"(Usage: killall [-qs] [-u USER] NAME ... | --help

Asks every process of a name that has the same MACOS_ROOT to end. MACOS_ROOT is ~/.local/share/macos-standin unless set.

  -q        say nothing where there is none
  -s        print what would be done, and do nothing
  -u USER   of those of this user alone, which are yours or none
)";

using Clock = std::chrono::steady_clock;

// For a process that comes, and again for one that goes.
constexpr std::chrono::seconds patience{2};

bool playsIn(const system::RunningProcess& process, const std::string& root) {
  const std::vector<std::string> environment = process.environment();
  const auto folder = systemRoot([&](const std::string& name) {
    const auto variable =
        std::ranges::find_if(environment, [&](const std::string& each) { return each.starts_with(name + "="); });
    return variable == environment.end() ? std::string() : variable->substr(name.size() + 1);
  });
  std::error_code error;
  return folder && std::filesystem::equivalent(process.workingFolder() / *folder, root, error);
}

using Processes = std::vector<system::RunningProcess>;

/// Those of the played system, which are looked for once.
struct Found {
  Processes named = {};
  Processes supervisors = {};  // of a Dock, which they start again
};

Found find(std::string_view name, const std::string& root) {
  constexpr std::string_view supervisor = "dock-supervisor";
  const std::array names = {name, supervisor};
  Found found;
  for (system::RunningProcess& each : system::RunningProcess::named(std::span(names).first(name == "Dock" ? 2 : 1))) {
    if (playsIn(each, root)) {
      (each.name() == name ? found.named : found.supervisors).push_back(std::move(each));
    }
  }
  return found;
}

// One that was found may have ended before it is asked, as if it had not been there.
Processes ask(Processes found) {
  std::erase_if(found, [](const system::RunningProcess& each) { return !each.send(SIGTERM); });
  return found;
}

// A Dock writes to its log when it starts, which tells when to look again.
Processes askToEnd(std::string_view name, const std::string& root) {
  const system::FolderWatch logs(logsFolder(root));
  Found found = find(name, root);
  Processes asked = ask(std::move(found.named));
  const Clock::time_point end = Clock::now() + patience;
  while (asked.empty() && !found.supervisors.empty() && logs.wait(end)) {
    for (const system::RunningProcess& each : found.supervisors) {
      std::ranges::move(ask(each.childrenNamed(name)), std::back_inserter(asked));
    }
  }
  return asked;
}

// Asks every process of a name that plays in the system of `root` to end, and sees them end. False when there was none.
//
// One call after the other, also those of different processes: each meets processes that no call before it has met. A
// Dock that was just ended is started again by its supervisor, so that the next call waits for it, two seconds at most.
bool killAll(std::string_view name, const std::string& root) {
  // Where there is no lock to be had, they meet what they meet.
  const auto turn = system::FileLock::take(root + "/.killall.lock", system::FileLock::unlimited);
  const Processes asked = askToEnd(name, root);
  const Clock::time_point end = Clock::now() + patience;
  for (const system::RunningProcess& each : asked) {
    each.waitForEnd(end);
  }
  return !asked.empty();
}

// Prints what would be done to those that are there now. False when there is none.
bool showAll(std::string_view name, const std::string& root) {
  const Processes found = find(name, root).named;
  for (const system::RunningProcess& each : found) {
    diagnostics::printLine("kill -TERM " + std::to_string(each.number()));
  }
  return !found.empty();
}

/// What is asked for.
struct Order {
  bool isQuiet = false;
  bool onlyShows = false;
  std::string user = {};  // empty where it does not matter
  std::vector<std::string_view> names = {};
};

/// Takes the letters of one word of options, and the word behind it where a letter wants that. False when a letter is
/// none of ours.
bool takeOptions(Order& order, std::span<const std::string_view>& words) {
  std::string_view letters = words.front().substr(1);
  words = words.subspan(1);
  bool isUnderstood = !letters.empty();
  for (; isUnderstood && !letters.empty(); letters.remove_prefix(1)) {
    if (letters.front() == 'q') {
      order.isQuiet = true;
    } else if (letters.front() == 's') {
      order.onlyShows = true;
    } else if (letters == "u" && !words.empty()) {
      order.user = words.front();
      words = words.subspan(1);
    } else {
      isUnderstood = false;
    }
  }
  return isUnderstood;
}

/// Nothing where that is not understood.
std::optional<Order> orderIn(std::span<const std::string_view> words) {
  Order order;
  while (!words.empty() && words.front().starts_with('-')) {
    if (!takeOptions(order, words)) {
      return std::nullopt;
    }
  }
  order.names.assign(words.begin(), words.end());
  return order.names.empty() ? std::nullopt : std::optional(order);
}

int endsNothing(const std::string& reason) {
  diagnostics::printErrorLine("killall: " + reason);
  return 1;
}

int run(const std::vector<std::string_view>& arguments) {
  if (arguments.size() == 1 && arguments.front() == "--help") {
    return diagnostics::print(usageText) ? 0 : 1;
  }
  const auto order = orderIn(arguments);
  if (!order) {
    diagnostics::printError(usageText);
    return 1;
  }
  const auto root = systemRoot();
  if (!root) {
    return endsNothing(root.error().message);
  }
  const auto* const user = order->user.empty() ? nullptr : ::getpwnam(order->user.c_str());
  if (user == nullptr && !order->user.empty()) {
    return endsNothing("user " + order->user + " does not exist");
  }
  // A played system is one user's, so that another one has nothing in it.
  const bool isOthers = user != nullptr && user->pw_uid != ::geteuid();
  int status = 0;
  for (const std::string_view name : order->names) {
    const bool isDone = !isOthers && (order->onlyShows ? showAll(name, *root) : killAll(name, *root));
    status = isDone ? status : 1;
    if (!isDone && !order->isQuiet) {
      diagnostics::printErrorLine("No matching processes belonging to you were found");
    }
  }
  return status;
}

}  // namespace
}  // namespace tarnwell::standin

int main(int argc, char** argv) {
  tarnwell::diagnostics::prepareStandardStreams();
  return tarnwell::standin::run({argv + (argc > 0 ? 1 : 0), argv + argc});
}
