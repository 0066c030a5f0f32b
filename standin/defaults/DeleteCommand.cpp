#include "standin/defaults/Commands.h"

namespace tarnwell::standin {
namespace {

Status notFound(const Domain& domain) {
  return failed({"\nDomain (" + domain.name + ") not found.\nDefaults have not been changed."});
}

Status deleteKey(PreferenceTransaction& transaction, const Domain& domain, const std::string& key) {
  if (plist_dict_get_item(transaction.dictionary(), key.c_str()) == nullptr) {
    return noSuchPair(domain, key);
  }
  plist_dict_remove_item(transaction.dictionary(), key.c_str());
  return commit(transaction, domain);
}

}  // namespace

Status deleteKeyOrDomain(const Invocation& invocation) {
  const Domain& domain = invocation.domain;
  // Looked at before the lock is made: a domain that never was leaves no trace.
  const StoredPreferences stored = loadPreferences(domain.path);
  if (stored.state == StoreState::absent) {
    return notFound(domain);
  }
  const bool wholeDomain = invocation.arguments.empty();
  if (stored.state == StoreState::unreadable || (stored.state == StoreState::damaged && !wholeDomain)) {
    return couldNotRead(domain, stored);
  }
  return change(domain, [&](PreferenceTransaction& transaction) {
    if (transaction.state() == StoreState::absent) {
      return notFound(domain);
    }
    return wholeDomain ? remove(transaction, domain)
                       : deleteKey(transaction, domain, std::string(invocation.arguments.front()));
  });
}

}  // namespace tarnwell::standin
