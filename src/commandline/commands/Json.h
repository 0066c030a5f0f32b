#pragma once

#include <span>
#include <string>

#include "commandline/commands/Description.h"
#include "commandline/commands/Session.h"
#include "profile/values/Profile.h"

namespace tarnwell::commandline {

/// One JSON object in a line. docs/command-line.md says what is in it.
std::string listJson(const Session& session, std::span<const Description> descriptions);
std::string differencesJson(std::span<const profile::Change> changes);
std::string differencesJson(std::span<const profile::WishChange> changes);
/// Of the settings with these places.
std::string explanationsJson(std::span<const std::size_t> settings);

}  // namespace tarnwell::commandline
