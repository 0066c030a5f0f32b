#include "standin/defaults/Commands.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

#include "diagnostics/Console.h"
#include "standin/store/SystemRoot.h"
#include "standin/store/Timestamp.h"
#include "standin/store/lists/OldStyleText.h"

namespace tarnwell::standin {
namespace {

struct DomainVerb {
  std::string_view name;
  Status (*run)(const Invocation&) = nullptr;
  // How many arguments may follow the domain.
  std::size_t least = 0;
  std::size_t most = 0;
};

constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();
constexpr std::array<DomainVerb, 6> domainVerbs = {{{"read", readDomain, 0, 1},
                                                    {"read-type", readType, 1, 1},
                                                    {"write", writeValue, 2, anyNumber},
                                                    {"delete", deleteKeyOrDomain, 0, 1},
                                                    {"export", exportDomain, 1, 1},
                                                    {"import", importDomain, 1, 1}}};

Status runForDomain(const DomainVerb& verb, Arguments arguments) {
  const auto root = systemRoot();
  // An absolute path says by itself where the store is.
  if (!root && !arguments.front().starts_with('/')) {
    return failed(root.error());
  }
  std::optional<Domain> domain = Domain::resolve(arguments.front(), root ? *root : std::string());
  if (!domain) {
    return refused(quotedText(arguments.front()) + " is not the name of a domain");
  }
  const Invocation invocation{std::move(*domain), arguments.subspan(1)};
  if (invocation.arguments.size() < verb.least) {
    return misused();
  }
  return invocation.arguments.size() > verb.most ? unexpectedArgument(invocation, verb.most) : verb.run(invocation);
}

Status runForAll(Status (*run)(const std::string&)) {
  const auto root = systemRoot();
  return root ? run(*root) : failed(root.error());
}

Status couldNotWrite(const Domain& domain, const system::Failure& failure) {
  logLine("Could not write domain " + domain.name + "; exiting");
  return failed(failure);
}

Status ended(const PreferenceTransaction& transaction, const Domain& domain, const system::Result<void>& result) {
  if (!transaction.setAsidePath().empty()) {
    logLine("Domain " + domain.name + " " + transaction.reason() + "; it is kept as " + transaction.setAsidePath());
  }
  return result ? Status::success : couldNotWrite(domain, result.error());
}

}  // namespace

Status runDefaults(Arguments arguments) {
  if (arguments.empty()) {
    return misused();
  }
  const std::string verb = lowerCase(arguments.front());
  const Arguments rest = arguments.subspan(1);
  if (verb == "help" || verb == "-help" || verb == "--help" || verb == "-h") {
    return showHelp();
  }
  if (verb == "domains" && rest.empty()) {
    return runForAll(listDomains);
  }
  if (verb == "read" && rest.empty()) {
    return runForAll(readAllDomains);
  }
  const auto* const found =
      std::find_if(domainVerbs.begin(), domainVerbs.end(), [&](const DomainVerb& each) { return each.name == verb; });
  if (found == domainVerbs.end() || rest.empty()) {
    return misused();
  }
  return runForDomain(*found, rest);
}

std::string lowerCase(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    if (c >= 'A' && c <= 'Z') {
      c = static_cast<char>(c - 'A' + 'a');
    }
  }
  return result;
}

void logLine(std::string_view message) {
  std::string line = timestamp() + " defaults[" + std::to_string(::getpid()) + ":" + std::to_string(::gettid()) + "] ";
  line.append(message);
  diagnostics::printErrorLine(line);
}

Status unexpectedArgument(const Invocation& invocation, std::size_t count) {
  return refused("Unexpected argument " + std::string(invocation.arguments[count]));
}

Status noSuchPair(const Domain& domain, std::string_view key) {
  return failed({"\nThe domain/default pair of (" + domain.name + ", " + std::string(key) + ") does not exist"});
}

Status couldNotRead(const Domain& domain, const StoredPreferences& stored) {
  return failed({"Could not read domain " + domain.name + "; " + domain.path + " " + stored.reason});
}

Status failed(const system::Failure& failure) {
  logLine(failure.message);
  return Status::failure;
}

Status refused(const std::string& reason) { return failed({reason + "; leaving defaults unchanged."}); }

Status show(std::string_view text) {
  return diagnostics::print(text) ? Status::success : failed(system::systemFailure("cannot write to standard output"));
}

Status change(const Domain& domain, const std::function<Status(PreferenceTransaction&)>& make) {
  system::Result<PreferenceTransaction> begun = PreferenceTransaction::begin(domain.path);
  if (!begun) {
    return couldNotWrite(domain, begun.error());
  }
  return make(*begun);
}

Status commit(PreferenceTransaction& transaction, const Domain& domain) {
  return ended(transaction, domain, transaction.commit());
}

Status remove(PreferenceTransaction& transaction, const Domain& domain) {
  return ended(transaction, domain, transaction.remove());
}

}  // namespace tarnwell::standin
