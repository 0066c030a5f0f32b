#include "commandline/commands/Explanation.h"

#include <algorithm>

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
     "what is pinned goes for good once icons are pinned meanwhile; before the first time the command line keeps all "
     "settings in a file, the window does not",
     "false", "Show active apps only"},
    {"single-app", "A click on an icon hides the windows of all other applications.", "works on macOS 14 alone",
     "false", "Single app mode"},
}};
static_assert(std::ranges::equal(explanations, profile::settings, {}, &Explanation::key, &profile::Setting::key));

std::string_view systemsText(core::Gate gate) {
  return gate == core::Gate::everySystem ? "macOS 14 and later" : "macOS 14";
}

}  // namespace tarnwell::commandline
