#pragma once

#include "commandline/commands/Session.h"
#include "commandline/words/Arguments.h"
#include "profile/values/Profile.h"

namespace tarnwell::commandline {

/// Shows how profiles differ, or how one differs from the Dock.
Status diff(const Session& session, const Arguments& arguments);

/// Shows what would have to change for a profile to hold.
Status compareWithDock(const Session& session, const Arguments& arguments, const profile::Profile& wanted);

}  // namespace tarnwell::commandline
