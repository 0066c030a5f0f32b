#include "profile/exports/Formats.h"
#include "profile/exports/Notes.h"

namespace tarnwell::profile {
namespace {

constexpr std::string_view want = R"sh(
# want KEY TYPE SHOWN VALUE: SHOWN is what "defaults read" prints for VALUE.
want() {
  if [ "$(defaults read-type com.apple.dock "$1" 2>/dev/null)" = "Type is $2" ] &&
    [ "$(defaults read com.apple.dock "$1" 2>/dev/null)" = "$3" ]; then
    return
  fi
  case $2 in
    boolean) defaults write com.apple.dock "$1" -bool "$4" ;;
    float) defaults write com.apple.dock "$1" -float "$4" ;;
    *) defaults write com.apple.dock "$1" -string "$4" ;;
  esac
  changed=1
}
)sh";

constexpr std::string_view unwanted = R"sh(
unwanted() {
  if defaults read com.apple.dock "$1" >/dev/null 2>&1; then
    defaults delete com.apple.dock "$1"
    changed=1
  fi
}
)sh";

constexpr std::string_view restart = R"sh(
# Without a Dock there is nothing to restart: it reads the settings when it starts.
[ "$changed" -eq 0 ] || killall Dock 2>/dev/null || true
)sh";

/// The type of a value and what "defaults read" prints for it.
std::string shown(const WantedValue& each) {
  const std::string value = text(each.value);
  switch (each.setting.type) {
    case Type::seconds:
      return "float " + (value.ends_with(".0") ? value.substr(0, value.size() - 2) : value);
    case Type::boolean:
      return value == "true" ? "boolean 1" : "boolean 0";
    case Type::effect:
      return "string " + value;
  }
  return {};
}

}  // namespace

system::Result<Export> shellScript(const Profile& profile, const ExportOptions&) {
  const auto values = valuesOf(profile);
  const auto unset = unsetKeysOf(profile);
  std::string script = "#!/bin/sh\n" + headComment(
                                           "Settings of the Dock. Changes what differs, and restarts the Dock "
                                           "once if anything did.",
                                           profile);
  script += "set -eu\n\nchanged=0\n";
  // A function that is not used would be found fault with.
  script += values.empty() ? "" : want;
  script += unset.empty() ? "" : unwanted;
  script += '\n';
  for (const WantedValue& each : values) {
    script += "want " + std::string(each.setting.key) + ' ' + shown(each) + ' ' + text(each.value) + '\n';
  }
  script += comments("unwanted ", unset, "\n");
  return Export{script.append(restart)};
}

}  // namespace tarnwell::profile
