#include <plist/plist.h>

#include <cstdint>

#include "commandline/dock/Dictionary.h"
#include "commandline/dock/Element.h"

namespace tarnwell::commandline {
namespace {

/// The value of a node by the function that reads its type.
template <class Value>
Value read(void (*get)(plist_t, Value*), plist_t node) {
  Value value = {};
  get(node, &value);
  return value;
}

std::string stringOf(plist_t node) {
  std::uint64_t length = 0;
  const char* text = ::plist_get_string_ptr(node, &length);
  return {text, static_cast<std::size_t>(length)};
}

// The library gives a negative one as a large one.
std::string integerTextOf(plist_t node) {
  return std::to_string(static_cast<std::int64_t>(read(::plist_get_uint_val, node)));
}

std::string elementOfNode(plist_t node) {
  char* list = nullptr;
  std::uint32_t length = 0;
  ::plist_to_xml(node, &list, &length);
  std::string element = elementIn({list, list == nullptr ? 0 : length});
  ::plist_to_xml_free(list);
  return element;
}

core::StoredValue otherOf(plist_t node, const char* type, const std::string& text = {}) {
  return core::OtherValue{.type = type, .text = text, .element = elementOfNode(node)};
}

core::StoredValue valueOf(plist_t node) {
  switch (node == nullptr ? PLIST_NONE : ::plist_get_node_type(node)) {
    case PLIST_NONE:
      return core::Absent();
    case PLIST_BOOLEAN:
      return read(::plist_get_bool_val, node) != 0;
    case PLIST_REAL:
      return read(::plist_get_real_val, node);
    case PLIST_STRING:
      return stringOf(node);
    case PLIST_UINT:
      return otherOf(node, "integer", integerTextOf(node));
    case PLIST_ARRAY:
      return otherOf(node, "array");
    case PLIST_DICT:
      return otherOf(node, "dictionary");
    case PLIST_DATE:
      return otherOf(node, "date");
    default:
      return otherOf(node, "data");
  }
}

}  // namespace

std::optional<Dictionary> Dictionary::read(std::string_view xml) {
  plist_t list = nullptr;
  ::plist_from_xml(xml.data(), static_cast<std::uint32_t>(xml.size()), &list);
  std::shared_ptr<const void> content(list, ::plist_free);
  return PLIST_IS_DICT(list) ? std::optional(Dictionary(std::move(content))) : std::nullopt;
}

core::StoredValue Dictionary::value(const std::string& key) const {
  // The library's signature lacks a const; it does not touch the dictionary.
  return valueOf(::plist_dict_get_item(const_cast<plist_t>(content_.get()), key.c_str()));
}

}  // namespace tarnwell::commandline
