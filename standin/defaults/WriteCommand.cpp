#include "standin/defaults/Commands.h"
#include "standin/defaults/TypedValue.h"
#include "system/Utf8.h"

namespace tarnwell::standin {
namespace {

Status reported(const TypedValue& typed) {
  logLine(typed.error);
  return typed.status;
}

// False when what is there is of another type.
bool place(plist_t dictionary, const std::string& key, TypedValue typed) {
  plist_t there = plist_dict_get_item(dictionary, key.c_str());
  if (typed.placement == Placement::replace || there == nullptr) {
    plist_dict_set_item(dictionary, key.c_str(), typed.value.release());
    return true;
  }
  if (plist_get_node_type(there) != plist_get_node_type(typed.value.get())) {
    return false;
  }
  if (typed.placement == Placement::mergeEntries) {
    plist_dict_merge(&there, typed.value.get());
    return true;
  }
  for (plist_t item : itemsOf(typed.value.get())) {
    plist_array_append_item(there, plist_copy(item));
  }
  return true;
}

}  // namespace

Status writeValue(const Invocation& invocation) {
  const Arguments arguments = invocation.arguments;
  const std::string key(arguments.front());
  if (!system::isUtf8(key)) {
    return refused(key + " is not text in UTF-8");
  }
  TypedValue typed = parseTypedValue(arguments.subspan(1));
  if (!typed.value) {
    return typed.error.empty() ? misused() : reported(typed);
  }
  if (typed.used + 1 < arguments.size()) {
    return unexpectedArgument(invocation, typed.used + 1);
  }
  return change(invocation.domain, [&](PreferenceTransaction& transaction) {
    const char* kind = typed.placement == Placement::appendItems ? "an array" : "a dictionary";
    if (!place(transaction.dictionary(), key, std::move(typed))) {
      return refused("Value for key " + key + " is not " + kind + "; cannot append");
    }
    return commit(transaction, invocation.domain);
  });
}

}  // namespace tarnwell::standin
