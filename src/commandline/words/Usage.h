#pragma once

#include <string>

#include "commandline/words/Command.h"

namespace tarnwell::commandline {

/// "usage: tarnwell [--help | --version | COMMAND ...]"
std::string usageLine(const std::string& program);
/// "usage: tarnwell get KEY [--default TEXT]"
std::string usageLine(const std::string& program, const Command& command);

/// What --help prints, without a line end.
std::string helpText(const std::string& program, const std::string& summary);
/// What --help prints behind a command.
std::string helpText(const std::string& program, const Command& command);

}  // namespace tarnwell::commandline
