#include "commandline/commands/Explanation.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "commandline/commands/Json.h"
#include "commandline/commands/Wanted.h"
#include "commandline/dock/DockRestart.h"
#include "commandline/dock/DockStore.h"

namespace tarnwell::commandline {

constexpr std::array<Explanation, profile::settings.size()> explanations = {{
    {"autohide-delay", "How long the pointer has to be at the edge of the screen before a hidden Dock comes.",
     "works while the Dock hides itself (System Settings), and not in full screen", "about 0.2", "Delay"},
    {"autohide-time-modifier", "How long a hidden Dock takes to come and to go.",
     "works while the Dock hides itself (System Settings)", "about 0.5", "Animation"},
    {"scroll-to-open", "Scrolling up on an icon shows the windows of its application, or opens a stack.",
     "works at once on every icon", "false", "Scroll to Exposé"},
    {"mineffect",
     "The picture with which a window goes into the Dock. System Settings offer genie and scale; suck is hidden.",
     "System Settings change it as well", "genie", "Minimize windows using"},
    {"showhidden", "Icons of applications that were hidden are dimmed.", "shows only after an application was hidden",
     "false", "Dim hidden apps"},
    {"static-only", "Only running applications are in the Dock.",
     "what is pinned goes for good once icons are pinned meanwhile; before the first time all settings are kept in a "
     "file",
     "false", "Show active apps only"},
    {"single-app", "A click on an icon hides the windows of all other applications.", "works on macOS 14 alone",
     "false", "Single app mode"},
}};
static_assert(std::ranges::equal(explanations, profile::settings, {}, &Explanation::key, &profile::Setting::key));

namespace {

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

std::string_view systemsText(core::Gate gate) {
  return gate == core::Gate::everySystem ? "macOS 14 and later" : "macOS 14";
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
