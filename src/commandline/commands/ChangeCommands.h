#pragma once

#include "commandline/commands/Session.h"
#include "commandline/words/Arguments.h"

namespace tarnwell::commandline {

Status set(const Session& session, const Arguments& arguments);
Status reset(const Session& session, const Arguments& arguments);
/// Changes what differs from a profile, or with --check tells whether anything does.
Status apply(const Session& session, const Arguments& arguments);
Status undo(const Session& session, const Arguments& arguments);

}  // namespace tarnwell::commandline
