#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <utility>

#include "standin/defaults/Commands.h"
#include "standin/store/Timestamp.h"
#include "standin/store/lists/OldStyleText.h"
#include "standin/store/lists/XmlList.h"
#include "system/base/Utf8.h"

namespace tarnwell::standin {
namespace {

enum class Placement {
  replace,       // the value takes the key's place
  appendItems,   // an array's items go to the end of the array that is there
  mergeEntries,  // a dictionary's entries go into the dictionary that is there
};

/// What follows the key of a `write`, understood.
struct TypedValue {
  PropertyList value = nullptr;  // none when it could not be understood
  Placement placement = Placement::replace;
  std::size_t used = 0;             // how many arguments belong to the value
  std::string error = {};           // what to tell the user; empty when only the usage can tell what is wrong
  Status status = Status::failure;  // of the tool, with such an error
};

using Maker = PropertyList (*)(const std::string&);

PropertyList makeString(const std::string& text) {
  return PropertyList(system::isUtf8(text) ? plist_new_string(text.c_str()) : nullptr);
}

PropertyList makeBoolean(const std::string& text) {
  const std::string word = lowerCase(text);
  if (word == "true" || word == "yes") {
    return PropertyList(plist_new_bool(1));
  }
  if (word == "false" || word == "no") {
    return PropertyList(plist_new_bool(0));
  }
  return nullptr;
}

PropertyList makeInteger(const std::string& text) {
  const char* begin = text.data();
  const char* const end = begin + text.size();
  if (text.starts_with('+') && !text.starts_with("+-")) {
    ++begin;
  }
  std::int64_t value = 0;
  const auto [rest, error] = std::from_chars(begin, end, value);
  if (error != std::errc() || rest != end) {
    return nullptr;
  }
  return PropertyList(plist_new_uint(static_cast<std::uint64_t>(value)));
}

// The tool never leaves the C locale, so the decimal point is a point.
PropertyList makeReal(const std::string& text) {
  constexpr std::string_view blanks = " \t\n\v\f\r";
  if (text.empty() || blanks.find(text.front()) != std::string_view::npos) {
    return nullptr;
  }
  char* rest = nullptr;
  const float value = std::strtof(text.c_str(), &rest);
  return PropertyList(*rest == '\0' ? plist_new_real(static_cast<double>(value)) : nullptr);
}

PropertyList makeData(const std::string& text) {
  const bool isHexadecimal = text.find_first_not_of("0123456789abcdefABCDEF") == std::string::npos;
  return isHexadecimal ? parseOldStyleText("<" + text + ">") : nullptr;
}

// In one of the forms of the usage.
PropertyList makeDate(const std::string& text) {
  for (const char* form : {"%Y-%m-%d %H:%M:%S %z", "%Y-%m-%dT%H:%M:%S%z", "%Y-%m-%d"}) {
    if (const auto seconds = secondsIn(text, form)) {
      return newDate(static_cast<double>(*seconds - dateReference));
    }
  }
  return nullptr;
}

struct ScalarType {
  std::string_view flag;
  Maker make = nullptr;
  std::string_view expected;  // empty when a wrong value is answered with the usage
};

constexpr std::array<ScalarType, 8> scalarTypes = {{{"-string", makeString, "text in UTF-8"},
                                                    {"-bool", makeBoolean, ""},
                                                    {"-boolean", makeBoolean, ""},
                                                    {"-int", makeInteger, "an integer of 64 bits"},
                                                    {"-integer", makeInteger, "an integer of 64 bits"},
                                                    {"-float", makeReal, "a number"},
                                                    {"-data", makeData, "pairs of hexadecimal digits"},
                                                    {"-date", makeDate, "a date"}}};

const ScalarType* scalarType(std::string_view flag) {
  const auto* const found =
      std::find_if(scalarTypes.begin(), scalarTypes.end(), [&](const ScalarType& each) { return each.flag == flag; });
  return found == scalarTypes.end() ? nullptr : found;
}

bool isFlag(std::string_view text) {
  return text.size() > 1 && text[0] == '-' &&
         ((text[1] >= 'a' && text[1] <= 'z') || (text[1] >= 'A' && text[1] <= 'Z'));
}

TypedValue refusedValue(const std::string& reason) { return {.error = reason + "; leaving defaults unchanged."}; }

TypedValue made(PropertyList value, std::size_t used) { return {.value = std::move(value), .used = used}; }

TypedValue parsed(const std::string& text, PropertyList value) {
  if (value) {
    return made(std::move(value), 1);
  }
  return {.error = "Could not parse: " + text + "; Try single-quoting it.", .status = Status::usage};
}

PropertyList parseListText(const std::string& text) {
  PropertyList value = parseOldStyleText(text);
  if (!value && text.starts_with('<')) {
    if (auto list = parseXmlList(text)) {
      return *std::move(list);
    }
  }
  return value;
}

TypedValue parseUntyped(const std::string& text) {
  if (isFlag(text)) {
    return {};
  }
  PropertyList value = makeString(text);
  if (!value) {
    return refusedValue(text + " is not text in UTF-8");
  }
  if (text.starts_with('{') || text.starts_with('(') || text.starts_with('<')) {
    return parsed(text, parseListText(text));
  }
  // A text that is quoted whole stands for what is within the quotes.
  PropertyList quoted = text.starts_with('"') || text.starts_with('\'') ? parseOldStyleText(text) : nullptr;
  return made(std::move(quoted ? quoted : value), 1);
}

// Of one argument at least.
TypedValue parseScalar(Arguments arguments) {
  const ScalarType* type = scalarType(arguments[0]);
  if (type == nullptr) {
    return parseUntyped(std::string(arguments[0]));
  }
  if (arguments.size() < 2) {
    return {};
  }
  const std::string text(arguments[1]);
  if (PropertyList value = type->make(text)) {
    return made(std::move(value), 2);
  }
  return type->expected.empty() ? TypedValue() : refusedValue(text + " is not " + std::string(type->expected));
}

TypedValue parseArray(Arguments arguments, Placement placement) {
  TypedValue result = made(PropertyList(plist_new_array()), arguments.size());
  result.placement = placement;
  for (Arguments rest = arguments; !rest.empty();) {
    TypedValue item = parseScalar(rest);
    if (!item.value) {
      return item;
    }
    plist_array_append_item(result.value.get(), item.value.release());
    rest = rest.subspan(item.used);
  }
  return result;
}

TypedValue parseDictionary(Arguments arguments, Placement placement) {
  TypedValue result = made(PropertyList(plist_new_dict()), arguments.size());
  result.placement = placement;
  for (Arguments rest = arguments; !rest.empty();) {
    const std::string key(rest.front());
    if (!system::isUtf8(key)) {
      return refusedValue(key + " is not text in UTF-8");
    }
    if (rest.size() == 1) {
      return refusedValue("Key " + key + " lacks a value");
    }
    TypedValue entry = parseScalar(rest.subspan(1));
    if (!entry.value) {
      return entry;
    }
    plist_dict_set_item(result.value.get(), key.c_str(), entry.value.release());
    rest = rest.subspan(1 + entry.used);
  }
  return result;
}

TypedValue parseTypedValue(Arguments arguments) {
  const std::string_view flag = arguments.front();
  const Arguments values = arguments.subspan(1);
  TypedValue result;
  if (flag == "-array" || flag == "-array-add") {
    result = parseArray(values, flag == "-array" ? Placement::replace : Placement::appendItems);
  } else if (flag == "-dict" || flag == "-dict-add") {
    result = parseDictionary(values, flag == "-dict" ? Placement::replace : Placement::mergeEntries);
  } else {
    return parseScalar(arguments);
  }
  result.used += 1;
  return result;
}

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
