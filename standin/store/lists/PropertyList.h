#pragma once

#include <plist/plist.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "system/base/Result.h"

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

/// Reads a binary or an XML property list: whole, with every value as it is there, or not at all.
system::Result<PropertyList> parsePropertyList(std::string_view bytes);

/// The two ways to write a list. What they give has been read back and found to be the same; dates in XML to the
/// second. XML has no place for control characters.
system::Result<std::string> binaryText(plist_t node);
system::Result<std::string> xmlText(plist_t node);

/// Whether two lists hold the same values of the same types. Dates are compared to the second.
bool isSame(plist_t one, plist_t other);

/// The entries of a dictionary, sorted by key.
std::vector<std::pair<std::string, plist_t>> entriesOf(plist_t dictionary);

/// The items of an array.
std::vector<plist_t> itemsOf(plist_t array);

/// What stands between the tags of an integer, a date or another plain value in XML. Unlike the library's getters it
/// knows unsigned integers from negative ones, and dates after 2068.
std::string xmlContent(plist_t node);

/// An integer that is too large for a signed one; the library's own maker takes it for negative.
PropertyList newLargeInteger(std::uint64_t value);

/// 2001-01-01 in seconds since 1970, which dates are counted from.
inline constexpr std::int64_t dateReference = 978307200;

/// A date in seconds since 2001; the library's own maker has 32 bits for them.
PropertyList newDate(double seconds);

}  // namespace tarnwell::standin
