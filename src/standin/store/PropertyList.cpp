#include "standin/store/PropertyList.h"

#include <cstdint>
#include <cstdlib>
#include <limits>

#include "standin/store/BinaryShape.h"

namespace tarnwell::standin {
namespace {

constexpr std::string_view binaryMagic = "bplist";

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

// Counts tags only, so a text that spells many tags may be refused; a text that is nested too deep is never let
// through.
bool isNestedTooDeep(std::string_view xml) {
  std::size_t depth = 0;
  for (std::size_t at = xml.find('<'); at != std::string_view::npos; at = xml.find('<', at + 1)) {
    const std::string_view tag = xml.substr(at + 1, 6);
    if (tag.starts_with("dict") || tag.starts_with("array")) {
      ++depth;
    }
    if (depth > 0 && (tag.starts_with("/dict") || tag.starts_with("/array"))) {
      --depth;
    }
    if (depth > deepestNesting) {
      return true;
    }
  }
  return false;
}

BinaryShape shapeOf(std::string_view bytes) {
  if (bytes.starts_with(binaryMagic)) {
    return binaryShape(bytes);
  }
  return isNestedTooDeep(bytes) ? BinaryShape::broken : BinaryShape::exact;
}

}  // namespace

ParsedList parsePropertyList(std::string_view bytes) {
  ParsedList parsed;
  if (bytes.size() > std::numeric_limits<std::uint32_t>::max()) {
    return parsed;
  }
  const BinaryShape shape = shapeOf(bytes);
  if (shape == BinaryShape::broken) {
    return parsed;
  }
  plist_t node = nullptr;
  plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &node);
  parsed.list.reset(node);
  if (shape == BinaryShape::inexact) {
    parsed.fidelity = Fidelity::inexact;
  }
  return parsed;
}

std::string binaryText(plist_t node) { return written(node, plist_to_bin); }

std::string xmlText(plist_t node) { return written(node, plist_to_xml); }

std::string xmlContent(plist_t node) {
  const std::string xml = xmlText(node);
  const std::size_t list = xml.find("<plist");
  const std::size_t element = xml.find('<', list + 1);
  const std::size_t content = xml.find('>', element) + 1;
  return xml.substr(content, xml.find('<', content) - content);
}

}  // namespace tarnwell::standin
