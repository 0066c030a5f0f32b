#pragma once

#include <span>
#include <string>
#include <string_view>

#include "standin/defaults/Usage.h"
#include "standin/store/Domain.h"
#include "standin/store/PreferenceTransaction.h"

namespace tarnwell::standin {

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

/// Reports the first argument from `count` on, which nothing asked for.
Status unexpectedArgument(const Invocation& invocation, std::size_t count);

Status noSuchPair(const Domain& domain, std::string_view key);
Status couldNotWrite(const Domain& domain);

/// Says why a store that is there cannot be read.
Status couldNotRead(const Domain& domain, const StoredPreferences& stored);

/// Commits, and reports a damaged store that was moved out of the way and a store that cannot be reached.
Status commit(PreferenceTransaction& transaction, const Domain& domain);

/// Reports a damaged store that was moved out of the way, if one was.
void reportSetAside(const PreferenceTransaction& transaction, const Domain& domain);

}  // namespace tarnwell::standin
