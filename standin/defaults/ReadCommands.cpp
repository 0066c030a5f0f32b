#include "standin/defaults/Commands.h"
#include "standin/defaults/DomainList.h"
#include "standin/defaults/LogLine.h"
#include "standin/store/OldStyleText.h"
#include "standin/store/ValueText.h"

namespace tarnwell::standin {
namespace {

struct Lookup {
  StoredPreferences stored;
  plist_t node = nullptr;  // belongs to `stored`
  Status status = Status::failure;
};

bool isThere(const StoredPreferences& stored) {
  return stored.state == StoreState::sound || stored.state == StoreState::absent;
}

// Finds a key and has said so when it is not there.
Lookup lookUp(const Domain& domain, const std::string& key) {
  Lookup lookup{loadPreferences(domain.path)};
  if (!isThere(lookup.stored)) {
    lookup.status = couldNotRead(domain, lookup.stored);
    return lookup;
  }
  if (lookup.stored.dictionary) {
    lookup.node = plist_dict_get_item(lookup.stored.dictionary.get(), key.c_str());
  }
  lookup.status = lookup.node == nullptr ? noSuchPair(domain, key) : Status::success;
  return lookup;
}

std::string shownText(plist_t node) {
  return (PLIST_IS_DICT(node) || PLIST_IS_ARRAY(node) ? oldStyleText(node) : valueText(node)) + "\n";
}

}  // namespace

Status readDomain(const Invocation& invocation) {
  if (invocation.arguments.size() > 1) {
    return unexpectedArgument(invocation, 1);
  }
  if (invocation.arguments.size() == 1) {
    const Lookup lookup = lookUp(invocation.domain, std::string(invocation.arguments.front()));
    return lookup.node == nullptr ? lookup.status : show(shownText(lookup.node));
  }
  const StoredPreferences stored = loadPreferences(invocation.domain.path);
  if (!isThere(stored)) {
    return couldNotRead(invocation.domain, stored);
  }
  if (stored.state == StoreState::sound) {
    return show(shownText(stored.dictionary.get()));
  }
  logLine("\nDomain " + invocation.domain.name + " does not exist");
  return Status::failure;
}

Status readType(const Invocation& invocation) {
  if (invocation.arguments.empty()) {
    return misused();
  }
  if (invocation.arguments.size() > 1) {
    return unexpectedArgument(invocation, 1);
  }
  const Lookup lookup = lookUp(invocation.domain, std::string(invocation.arguments.front()));
  return lookup.node == nullptr ? lookup.status : show(std::string("Type is ") + typeName(lookup.node) + "\n");
}

Status readAllDomains(const std::string& root) {
  const system::Result<std::vector<std::string>> names = domainNames(root);
  if (!names) {
    return failed(names.error());
  }
  const PropertyList all(plist_new_dict());
  Status status = Status::success;
  for (const std::string& name : *names) {
    const Domain domain = *Domain::resolve(name, root);
    StoredPreferences stored = loadPreferences(domain.path);
    if (stored.state == StoreState::sound) {
      plist_dict_set_item(all.get(), name.c_str(), stored.dictionary.release());
    } else if (!isThere(stored)) {
      status = couldNotRead(domain, stored);
    }
  }
  return show(shownText(all.get())) == Status::success ? status : Status::failure;
}

}  // namespace tarnwell::standin
