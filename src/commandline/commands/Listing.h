#pragma once

#include "commandline/commands/Session.h"
#include "commandline/words/Arguments.h"

namespace tarnwell::commandline {

/// Shows all settings.
Status list(const Session& session, const Arguments& arguments);
/// Shows the value of one.
Status get(const Session& session, const Arguments& arguments);
/// Says what there is to know of one, or of all.
Status explain(const Session& session, const Arguments& arguments);

}  // namespace tarnwell::commandline
