#pragma once

#include <plist/plist.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tarnwell::standin {

struct PropertyListDeleter {
  void operator()(plist_t node) const { plist_free(node); }
};

/// Owns a node and everything below it. A node that was put into a container belongs to the container.
using PropertyList = std::unique_ptr<void, PropertyListDeleter>;

/// How many containers may stand within each other. Real preferences have a handful of levels; the property list
/// library recurses without a limit of its own.
inline constexpr std::size_t deepestNesting = 512;
inline constexpr const char* tooDeep = "it is nested more than 512 deep";

/// The entries of a dictionary, sorted by key.
std::vector<std::pair<std::string, plist_t>> entriesOf(plist_t dictionary);

/// The items of an array.
std::vector<plist_t> itemsOf(plist_t array);

/// An integer that is too large for a signed one; the library's own maker takes it for negative.
PropertyList newLargeInteger(std::uint64_t value);

/// 2001-01-01 in seconds since 1970, which dates are counted from.
inline constexpr std::int64_t dateReference = 978307200;

/// A date in seconds since 2001; the library's own maker has 32 bits for them.
PropertyList newDate(double seconds);

/// As the library writes them, which says nothing of whether they can be read; XML with every carriage return spelled
/// out, which would be read as a line feed, and years of four digits.
std::string libraryBinary(plist_t node);
std::string libraryXml(plist_t node);

}  // namespace tarnwell::standin
