#pragma once

#include <plist/plist.h>

#include <memory>
#include <string>
#include <string_view>

namespace tarnwell::standin {

struct PropertyListDeleter {
  void operator()(plist_t node) const { plist_free(node); }
};

/// Owns a node and everything below it. A node that was put into a container belongs to the container.
using PropertyList = std::unique_ptr<void, PropertyListDeleter>;

/// Whether every value would be the same after being read and written again. A binary list can hold what the property
/// list library has no place for: sets, half surrogate pairs, NUL within texts, integers beyond 64 bits.
enum class Fidelity { exact, inexact };

struct ParsedList {
  PropertyList list;  // none when the bytes are no property list
  Fidelity fidelity = Fidelity::exact;
};

/// Reads a binary or an XML property list. Lists that are nested more than 512 deep count as none.
ParsedList parsePropertyList(std::string_view bytes);

std::string binaryText(plist_t node);
std::string xmlText(plist_t node);

/// What stands between the tags of an integer, a date or another plain value in XML. Unlike the library's getters it
/// knows unsigned integers from negative ones, and dates after 2068.
std::string xmlContent(plist_t node);

}  // namespace tarnwell::standin
