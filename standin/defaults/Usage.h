#pragma once

namespace tarnwell::standin {

/// The exit statuses of the tool.
enum class Status : int { success = 0, failure = 1, usage = 255 };

/// Prints the usage on standard output, for `help`.
Status showHelp();

/// Prints the usage on standard error, for a command line that makes no sense.
Status misused();

}  // namespace tarnwell::standin
