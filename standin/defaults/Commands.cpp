#include "standin/defaults/Commands.h"

#include <algorithm>
#include <array>
#include <optional>

#include "diagnostics/Console.h"
#include "standin/defaults/LogLine.h"
#include "standin/defaults/LowerCase.h"
#include "standin/store/OldStyleText.h"
#include "standin/store/SystemRoot.h"

namespace tarnwell::standin {
namespace {

struct DomainVerb {
  std::string_view name;
  Status (*run)(const Invocation&) = nullptr;
};

constexpr std::array<DomainVerb, 6> domainVerbs = {{{"read", readDomain},
                                                    {"read-type", readType},
                                                    {"write", writeValue},
                                                    {"delete", deleteKeyOrDomain},
                                                    {"export", exportDomain},
                                                    {"import", importDomain}}};

Status noRoot(const std::string& problem) {
  logLine(problem);
  return Status::failure;
}

Status runForDomain(const DomainVerb& verb, Arguments arguments) {
  const auto [root, problem] = systemRoot();
  // An absolute path says by itself where the store is.
  if (!root && !arguments.front().starts_with('/')) {
    return noRoot(problem);
  }
  std::optional<Domain> domain = Domain::resolve(arguments.front(), root.value_or(std::string()));
  if (!domain) {
    logLine(quotedText(arguments.front()) + " is not the name of a domain; leaving defaults unchanged.");
    return Status::failure;
  }
  return verb.run({std::move(*domain), arguments.subspan(1)});
}

Status runForAll(Status (*run)(const std::string&)) {
  const auto [root, problem] = systemRoot();
  return root ? run(*root) : noRoot(problem);
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

Status unexpectedArgument(const Invocation& invocation, std::size_t count) {
  logLine("Unexpected argument " + std::string(invocation.arguments[count]) + "; leaving defaults unchanged.");
  return Status::failure;
}

Status noSuchPair(const Domain& domain, std::string_view key) {
  logLine("\nThe domain/default pair of (" + domain.name + ", " + std::string(key) + ") does not exist");
  return Status::failure;
}

Status couldNotRead(const Domain& domain, const StoredPreferences& stored) {
  logLine("Could not read domain " + domain.name + "; " + domain.path + " " + stored.reason);
  return Status::failure;
}

Status failed(const system::Failure& failure) {
  logLine(failure.message);
  return Status::failure;
}

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
