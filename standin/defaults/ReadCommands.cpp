#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

#include "standin/defaults/Commands.h"
#include "standin/store/SystemRoot.h"
#include "standin/store/lists/OldStyleText.h"
#include "standin/store/lists/ValueText.h"

namespace tarnwell::standin {
namespace {

bool isThere(const StoredPreferences& stored) {
  return stored.state == StoreState::sound || stored.state == StoreState::absent;
}

std::string shownText(plist_t node) {
  return (PLIST_IS_DICT(node) || PLIST_IS_ARRAY(node) ? oldStyleText(node) : valueText(node)) + "\n";
}

std::string typeText(plist_t node) { return std::string("Type is ") + typeName(node) + "\n"; }

// Prints what a text says of the value whose key is given.
Status showValue(const Invocation& invocation, std::string (*text)(plist_t)) {
  const StoredPreferences stored = loadPreferences(invocation.domain.path);
  if (!isThere(stored)) {
    return couldNotRead(invocation.domain, stored);
  }
  const std::string key(invocation.arguments.front());
  plist_t node = stored.dictionary ? plist_dict_get_item(stored.dictionary.get(), key.c_str()) : nullptr;
  return node == nullptr ? noSuchPair(invocation.domain, key) : show(text(node));
}

// The domains in the preferences folder of `root`, sorted; the global one is not among them.
system::Result<std::vector<std::string>> domainNames(const std::string& root) {
  std::vector<std::string> names;
  const std::string folder = preferencesFolder(root);
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const std::filesystem::path& path = entry->path();
    if (path.extension() == ".plist" && !path.filename().string().starts_with('.')) {
      names.push_back(path.stem());
    }
  }
  if (error && error != std::errc::no_such_file_or_directory) {
    return system::Failure{"cannot read " + folder + ": " + error.message()};
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace

Status readDomain(const Invocation& invocation) {
  if (!invocation.arguments.empty()) {
    return showValue(invocation, shownText);
  }
  const StoredPreferences stored = loadPreferences(invocation.domain.path);
  if (!isThere(stored)) {
    return couldNotRead(invocation.domain, stored);
  }
  if (stored.state == StoreState::sound) {
    return show(shownText(stored.dictionary.get()));
  }
  return failed({"\nDomain " + invocation.domain.name + " does not exist"});
}

Status readType(const Invocation& invocation) { return showValue(invocation, typeText); }

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

Status listDomains(const std::string& root) {
  const system::Result<std::vector<std::string>> names = domainNames(root);
  if (!names) {
    return failed(names.error());
  }
  std::string line;
  for (const std::string& name : *names) {
    line += (line.empty() ? "" : ", ") + name;
  }
  return show(line + "\n");
}

}  // namespace tarnwell::standin
