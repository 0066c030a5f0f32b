#include "core/DecimalText.h"
#include "profile/exports/Formats.h"
#include "profile/exports/Notes.h"

namespace tarnwell::profile {
namespace {

constexpr std::string_view keep = R"sh(
# keep KEY TYPE PRINTED ARGUMENT...: how defaults tells of the value where it is right already, and how it is given one.
keep() {
  key=$1
  type=$2
  printed=$3
  shift 3
  if [ "$(defaults read-type "$domain" "$key" 2>/dev/null)" != "Type is $type" ] ||
    [ "$(defaults read "$domain" "$key" 2>/dev/null)" != "$printed" ]; then
    defaults write "$domain" "$key" "$@"
    touched=yes
  fi
}
)sh";

constexpr std::string_view drop = R"sh(
# drop KEY: what the Dock does without it is its own business.
drop() {
  if defaults read-type "$domain" "$1" >/dev/null 2>&1; then
    defaults delete "$domain" "$1"
    touched=yes
  fi
}
)sh";

constexpr std::string_view restart = R"sh(
# A Dock that runs has read its settings; the one that follows it reads them anew.
if [ "$touched" = yes ]; then
  killall Dock 2>/dev/null || true
fi
)sh";

/// The type of a value, what "defaults read" prints for it, and how it is written.
std::string told(const WantedValue& each) {
  const std::string value = text(each.value);
  switch (each.setting.type) {
    case Type::seconds:
      return "float " + core::printedDecimalText(std::get<float>(each.value)) + " -float " + value;
    case Type::boolean:
      return (value == "true" ? "boolean 1 -bool " : "boolean 0 -bool ") + value;
    case Type::effect:
      return "string " + value + " -string " + value;
  }
  return {};
}

}  // namespace

system::Result<Export> shellScript(const Profile& profile, const ExportOptions&) {
  const auto values = valuesOf(profile);
  const auto unset = unsetKeysOf(profile);
  std::string script = "#!/bin/sh\n" + headComment(
                                           "Settings of the Dock. What is right already is left alone, and then so is "
                                           "the Dock.",
                                           profile);
  script += "set -eu\n\n";
  // What is not used would be found fault with.
  script += values.empty() && unset.empty() ? "" : "domain=com.apple.dock\n";
  script += "touched=no\n";
  script += values.empty() ? "" : keep;
  script += unset.empty() ? "" : drop;
  script += '\n';
  for (const WantedValue& each : values) {
    script += "keep " + std::string(each.setting.key) + ' ' + told(each) + '\n';
  }
  script += comments("drop ", unset, "\n");
  return Export{script.append(restart)};
}

}  // namespace tarnwell::profile
