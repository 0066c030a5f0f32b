#include "standin/store/lists/Node.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <string_view>

namespace tarnwell::standin {
namespace {

using Writer = void (*)(plist_t, char**, std::uint32_t*);

std::string written(plist_t node, Writer write) {
  char* bytes = nullptr;
  std::uint32_t length = 0;
  write(node, &bytes, &length);
  if (bytes == nullptr) {
    return {};
  }
  std::string text(bytes, length);
  std::free(bytes);
  return text;
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
    std::free(key);
  }
  std::free(iterator);
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

std::string libraryBinary(plist_t node) { return written(node, plist_to_bin); }

std::string libraryXml(plist_t node) {
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

}  // namespace tarnwell::standin
