#include "profile/exports/Targets.h"

namespace tarnwell::profile {

constexpr std::array<Target, 8> targets = {
    {{"sh", "a shell script that changes what differs", shellScript},
     {"ansible", "a play for community.general.osx_defaults", ansiblePlay},
     {"nix-darwin", "a module of nix-darwin", nixDarwinModule},
     {"home-manager", "a module of home-manager", homeManagerModule, OwnOption::restart},
     {"mobileconfig", "a configuration profile for device management", configurationProfile, OwnOption::identifier},
     {"plist", "a property list for defaults import", propertyList},
     {"json", "the profile in JSON", json},
     {"toml", "the profile itself, written anew", toml}}};

}  // namespace tarnwell::profile
