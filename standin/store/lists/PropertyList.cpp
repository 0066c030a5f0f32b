#include "standin/store/lists/PropertyList.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "standin/store/lists/BinaryShape.h"
#include "standin/store/lists/ValueText.h"
#include "standin/store/lists/XmlList.h"

namespace tarnwell::standin {
namespace {

constexpr std::string_view binaryMagic = "bplist";

using Entry = std::pair<std::string, plist_t>;
system::Result<std::string> verified(std::string bytes, plist_t node) {
  const system::Result<PropertyList> found = parsePropertyList(bytes);
  if (!found) {
    return system::Failure{"what would be written cannot be read: " + found.error().message};
  }
  if (!isSame(found->get(), node)) {
    return system::Failure{"what would be written reads differently"};
  }
  return bytes;
}

bool areSame(double one, double other) { return one == other || (std::isnan(one) && std::isnan(other)); }

double realOf(plist_t node) {
  double value = 0;
  plist_get_real_val(node, &value);
  return value;
}

bool areSameArrays(plist_t one, plist_t other) { return std::ranges::equal(itemsOf(one), itemsOf(other), isSame); }

bool areSameDictionaries(plist_t one, plist_t other) {
  return std::ranges::equal(entriesOf(one), entriesOf(other), [](const auto& entry, const auto& another) {
    return entry.first == another.first && isSame(entry.second, another.second);
  });
}

/// Anywhere below; the library keeps both entries of such a key and finds one.
bool hasRepeatedKey(plist_t node) {
  if (PLIST_IS_ARRAY(node)) {
    return std::ranges::any_of(itemsOf(node), hasRepeatedKey);
  }
  if (!PLIST_IS_DICT(node)) {
    return false;
  }
  const auto entries = entriesOf(node);
  return std::ranges::adjacent_find(entries, {}, &Entry::first) != entries.end() ||
         std::ranges::any_of(entries, hasRepeatedKey, &Entry::second);
}

system::Result<PropertyList> parseBinaryList(std::string_view bytes) {
  if (bytes.size() > std::numeric_limits<std::uint32_t>::max()) {
    return system::Failure{"it is too large"};
  }
  if (const auto fault = binaryFault(bytes)) {
    return *fault;
  }
  plist_t node = nullptr;
  plist_from_bin(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &node);
  PropertyList list(node);
  if (!list) {
    return system::Failure{"it is malformed"};
  }
  if (hasRepeatedKey(node)) {
    return system::Failure{"a key is there twice"};
  }
  return list;
}

}  // namespace

system::Result<PropertyList> parsePropertyList(std::string_view bytes) {
  return bytes.starts_with(binaryMagic) ? parseBinaryList(bytes) : parseXmlList(bytes);
}

system::Result<std::string> binaryText(plist_t node) { return verified(libraryBinary(node), node); }

system::Result<std::string> xmlText(plist_t node) { return verified(libraryXml(node), node); }

bool isSame(plist_t one, plist_t other) {
  const plist_type type = plist_get_node_type(one);
  if (type != plist_get_node_type(other)) {
    return false;
  }
  switch (type) {
    case PLIST_DICT:
      return areSameDictionaries(one, other);
    case PLIST_ARRAY:
      return areSameArrays(one, other);
    case PLIST_REAL:
      return areSame(realOf(one), realOf(other));
    default:
      return valueText(one) == valueText(other);
  }
}

}  // namespace tarnwell::standin
