#pragma once

#include <functional>

#include "commandline/commands/Session.h"
#include "commandline/dock/ChangeMemory.h"
#include "commandline/words/Arguments.h"

namespace tarnwell::commandline {

/// What is to be changed, or with which status it was refused.
using Wanted = std::variant<profile::Profile, profile::Before, Status>;
using AskWanted = std::function<Wanted(const ChangeMemory& memory)>;

/// Changes the Dock's settings to what is wanted, by one command line, and restarts the Dock once, if anything differs;
/// as the options say. What is wanted is asked for when it is this process's turn. From the write on signals wait until
/// the Dock has been restarted.
Status change(const Session& session, const Arguments& arguments, const AskWanted& wanted);

/// Restarts the Dock, and says what kept it from coming back; that there is none where it may.
Status restartAndTell(const Session& session, bool isQuiet);

/// "autohide-delay: not set -> 0.0"
std::string changeLine(const Session& session, const profile::Change& change);

}  // namespace tarnwell::commandline
