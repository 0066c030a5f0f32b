#pragma once

#include "commandline/commands/Session.h"
#include "commandline/words/Arguments.h"

namespace tarnwell::commandline {

/// Writes a profile, or what the Dock has as one, in the words of a tool.
Status exportProfile(const Session& session, const Arguments& arguments);

}  // namespace tarnwell::commandline
