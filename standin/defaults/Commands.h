#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "standin/store/Domain.h"
#include "standin/store/PreferenceFile.h"

namespace tarnwell::standin {

/// The exit statuses of the tool.
enum class Status : int { success = 0, failure = 1, usage = 255 };

using Arguments = std::span<const std::string_view>;

/// What follows the verb and its domain on the command line.
struct Invocation {
  Domain domain;
  Arguments arguments;
};

/// Runs a whole command line, the program's name left out.
Status runDefaults(Arguments arguments);

Status readAllDomains(const std::string& root);
Status readDomain(const Invocation& invocation);
Status readType(const Invocation& invocation);
Status writeValue(const Invocation& invocation);
Status deleteKeyOrDomain(const Invocation& invocation);
Status exportDomain(const Invocation& invocation);
Status importDomain(const Invocation& invocation);
Status listDomains(const std::string& root);

/// `text` with the letters A to Z made small. The user's locale has no say in what a verb or a boolean is.
std::string lowerCase(std::string_view text);

/// Prints a message on standard error the way the system's log does: time, "defaults", process and thread, then the
/// message and a line feed, all in one write.
void logLine(std::string_view message);

/// Prints the usage on standard output, for `help`.
Status showHelp();

/// Prints the usage on standard error, for a command line that makes no sense.
Status misused();

/// Reports the first argument from `count` on, which nothing asked for.
Status unexpectedArgument(const Invocation& invocation, std::size_t count);

Status noSuchPair(const Domain& domain, std::string_view key);

/// Says why a store that is there cannot be read.
Status couldNotRead(const Domain& domain, const StoredPreferences& stored);

/// Says why nothing came of a command.
Status failed(const system::Failure& failure);

/// Says why a command was not begun.
Status refused(const std::string& reason);

/// Prints a text on standard output, and says so when that fails.
Status show(std::string_view text);

/// Begins a change of the store, or says why it cannot.
Status change(const Domain& domain, const std::function<Status(PreferenceTransaction&)>& make);

/// Ends a change. Both report a damaged store that was moved out of the way, and why a store cannot be reached.
Status commit(PreferenceTransaction& transaction, const Domain& domain);
Status remove(PreferenceTransaction& transaction, const Domain& domain);

}  // namespace tarnwell::standin
