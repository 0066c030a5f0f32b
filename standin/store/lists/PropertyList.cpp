#include "standin/store/lists/PropertyList.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "standin/store/lists/BinaryShape.h"
#include "standin/store/lists/ValueText.h"
#include "standin/store/lists/XmlList.h"

namespace tarnwell::standin {
namespace {

constexpr std::string_view binaryMagic = "bplist";

using Entry = std::pair<std::string, plist_t>;
using Writer = void (*)(plist_t, char**, std::uint32_t*);

std::string written(plist_t node, Writer write) {
  char* bytes = nullptr;
  std::uint32_t length = 0;
  write(node, &bytes, &length);
  if (bytes == nullptr) {
    return {};
  }
  std::string text(bytes, length);
  std::free(bytes);  // NOLINT(cppcoreguidelines-no-malloc): the library allocates with malloc
  return text;
}

/// As the library writes it, but with every carriage return spelled out, which would be read as a line feed, and years
/// of four digits.
std::string xmlOf(plist_t node) {
  constexpr std::string_view date = "<date>";
  std::string xml;
  for (const char c : written(node, plist_to_xml)) {
    xml += c == '\r' ? std::string_view("&#13;") : std::string_view(&c, 1);
  }
  for (std::size_t at = xml.find(date); at != std::string::npos; at = xml.find(date, at + 1)) {
    const std::size_t year = at + date.size();
    xml.insert(year, 4 - std::min<std::size_t>(xml.find('-', year) - year, 4), '0');
  }
  return xml;
}

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

void append(std::string& bytes, std::uint64_t number) {
  for (unsigned shift = 64; shift > 0; shift -= 8) {
    bytes += static_cast<char>(number >> (shift - 8) & 0xFFU);
  }
}

/// A value by the bytes that it has in a binary list.
PropertyList fromBinary(const std::string& object) {
  std::string bytes = "bplist00" + object;
  const std::size_t table = bytes.size();
  bytes += '\x08';
  bytes.append(6, '\0') += "\x01\x01";
  append(bytes, 1);
  append(bytes, 0);
  append(bytes, table);
  plist_t node = nullptr;
  plist_from_bin(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &node);
  return PropertyList(node);
}

}  // namespace

system::Result<PropertyList> parsePropertyList(std::string_view bytes) {
  return bytes.starts_with(binaryMagic) ? parseBinaryList(bytes) : parseXmlList(bytes);
}

system::Result<std::string> binaryText(plist_t node) { return verified(written(node, plist_to_bin), node); }

system::Result<std::string> xmlText(plist_t node) { return verified(xmlOf(node), node); }

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

std::vector<std::pair<std::string, plist_t>> entriesOf(plist_t dictionary) {
  std::vector<std::pair<std::string, plist_t>> entries;
  plist_dict_iter iterator = nullptr;
  plist_dict_new_iter(dictionary, &iterator);
  for (;;) {
    char* key = nullptr;
    plist_t value = nullptr;
    plist_dict_next_item(dictionary, iterator, &key, &value);
    if (value == nullptr) {
      break;
    }
    entries.emplace_back(key, value);
    std::free(key);  // NOLINT(cppcoreguidelines-no-malloc): the library allocates with malloc
  }
  std::free(iterator);  // NOLINT(cppcoreguidelines-no-malloc): as above
  std::sort(entries.begin(), entries.end());
  return entries;
}

std::vector<plist_t> itemsOf(plist_t array) {
  std::vector<plist_t> items;
  for (std::uint32_t i = 0; i < plist_array_get_size(array); ++i) {
    items.push_back(plist_array_get_item(array, i));
  }
  return items;
}

std::string xmlContent(plist_t node) {
  const std::string xml = xmlOf(node);
  const std::size_t list = xml.find("<plist");
  const std::size_t element = xml.find('<', list + 1);
  const std::size_t content = xml.find('>', element) + 1;
  return xml.substr(content, xml.find('<', content) - content);
}

PropertyList newLargeInteger(std::uint64_t value) {
  std::string object = "\x14";
  append(object, 0);
  append(object, value);
  return fromBinary(object);
}

PropertyList newDate(double seconds) {
  std::string object = "3";
  append(object, std::bit_cast<std::uint64_t>(seconds));
  return fromBinary(object);
}

}  // namespace tarnwell::standin
