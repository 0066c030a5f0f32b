#include <algorithm>

#include "profile/exports/Formats.h"
#include "profile/exports/Notes.h"
#include "profile/exports/nix/NixText.h"

namespace tarnwell::profile {

system::Result<Export> nixDarwinModule(const Profile& profile, const ExportOptions&) {
  auto values = valuesOf(profile);
  // The one that has no option of its own goes in by its domain, and does not make the Dock restart.
  const auto custom = std::stable_partition(values.begin(), values.end(),
                                            [](const WantedValue& each) { return each.setting.key != "single-app"; });
  const auto optionCount = static_cast<std::size_t>(custom - values.begin());
  const auto options = std::span<const WantedValue>(values).first(optionCount);
  const auto rest = std::span<const WantedValue>(values).subspan(optionCount);
  std::vector<std::string> warnings = unsaidUnset("nix-darwin", profile);
  if (options.empty() && !rest.empty()) {
    warnings.emplace_back("The Dock is not restarted: nix-darwin does that for its own options alone");
  }
  return Export{headComment("Settings of the Dock, as a module of nix-darwin.", profile) + "{\n" +
                    nixAttributes("system.defaults.dock", options) +
                    nixAttributes("system.defaults.CustomUserPreferences.\"com.apple.dock\"", rest) +
                    comments("  # ", warnings) + "}\n",
                warnings};
}

}  // namespace tarnwell::profile
