#include "profile/exports/Formats.h"
#include "profile/exports/Notes.h"
#include "profile/exports/nix/NixText.h"

namespace tarnwell::profile {
namespace {

constexpr std::string_view restartEntry =
    R"(  home.activation.restartDock = lib.hm.dag.entryAfter [ "setDarwinDefaults" ] ''
    run /usr/bin/killall Dock || true
  '';
)";

constexpr std::string_view restartInComment = R"(  # Nothing restarts the Dock. This would, at every switch:
  # home.activation.restartDock = lib.hm.dag.entryAfter [ "setDarwinDefaults" ] ''
  #   run /usr/bin/killall Dock || true
  # '';
)";

}  // namespace

system::Result<Export> homeManagerModule(const Profile& profile, const ExportOptions& options) {
  const std::vector<std::string> warnings = unsaidUnset("home-manager", profile);
  return Export{headComment("Settings of the Dock, as a module of home-manager.", profile) + "{ lib, ... }:\n{\n" +
                    nixAttributes("targets.darwin.defaults.\"com.apple.dock\"", valuesOf(profile)) +
                    comments("  # ", warnings) + std::string(options.restartsDock ? restartEntry : restartInComment) +
                    "}\n",
                warnings};
}

}  // namespace tarnwell::profile
