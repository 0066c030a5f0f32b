#include "standin/store/lists/ValueText.h"

#include <array>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include "standin/store/lists/Node.h"

namespace tarnwell::standin {
namespace {

bool fitsFloat(double value) {
  return std::fabs(value) <= FLT_MAX && static_cast<double>(static_cast<float>(value)) == value;
}

std::string dataText(plist_t node) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::uint64_t length = 0;
  const char* bytes = plist_get_data_ptr(node, &length);
  std::string text = "<";
  for (std::uint64_t i = 0; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    text += digits[byte >> 4U];
    text += digits[byte & 0xFU];
  }
  return text + ">";
}

/// What stands between the tags of an integer, a date or another plain value in XML. Unlike the library's getters it
/// knows unsigned integers from negative ones, and dates after 2068.
std::string xmlContent(plist_t node) {
  const std::string xml = libraryXml(node);
  const std::size_t list = xml.find("<plist");
  const std::size_t element = xml.find('<', list + 1);
  const std::size_t content = xml.find('>', element) + 1;
  return xml.substr(content, xml.find('<', content) - content);
}

// 2025-03-20T18:05:18Z becomes 2025-03-20 18:05:18 +0000.
std::string dateText(plist_t node) {
  std::string text = xmlContent(node);
  return text.replace(text.find('T'), 1, " ").replace(text.find('Z'), 1, " +0000");
}

std::string stringText(plist_t node) {
  std::uint64_t length = 0;
  const char* bytes = plist_get_string_ptr(node, &length);
  return {bytes, length};
}

}  // namespace

const char* typeName(plist_t node) {
  // In the library's order.
  constexpr std::array names = {"boolean", "integer", "float",  "string", "array",  "dictionary",
                                "date",    "data",    "string", "uid",    "unknown"};
  return names.at(plist_get_node_type(node));
}

std::string valueText(plist_t node) {
  switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN:
      return plist_bool_val_is_true(node) != 0 ? "1" : "0";
    case PLIST_UINT:
      return xmlContent(node);
    case PLIST_STRING:
      return stringText(node);
    case PLIST_DATA:
      return dataText(node);
    case PLIST_DATE:
      return dateText(node);
    case PLIST_REAL: {
      double value = 0;
      plist_get_real_val(node, &value);
      return realText(value);
    }
    case PLIST_UID: {
      std::uint64_t value = 0;
      plist_get_uid_val(node, &value);
      return "{value = " + std::to_string(value) + "}";
    }
    default:
      return {};
  }
}

// The tool never leaves the C locale, so the decimal point is a point.
std::string realText(double value) {
  if (std::isnan(value)) {
    return "nan";
  }
  std::array<char, 32> buffer{};
  const int length = std::snprintf(buffer.data(), buffer.size(), "%.*g", fitsFloat(value) ? 7 : 15, value);
  return {buffer.data(), static_cast<std::size_t>(length)};
}

}  // namespace tarnwell::standin
