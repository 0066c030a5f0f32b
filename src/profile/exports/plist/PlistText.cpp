#include "profile/exports/plist/PlistText.h"

namespace tarnwell::profile {
namespace {

std::string plistValue(const WantedValue& each) {
  const std::string value = text(each.value);
  switch (each.setting.type) {
    case Type::seconds:
      return "<real>" + value + "</real>";
    case Type::boolean:
      return '<' + value + "/>";
    case Type::effect:
      return "<string>" + value + "</string>";
  }
  return {};
}

}  // namespace

constexpr std::string_view plistHead = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
)";

std::string xmlText(std::string_view name) {
  std::string result;
  for (const char character : name) {
    if (character == '&') {
      result += "&amp;";
    } else if (character == '<') {
      result += "&lt;";
    } else if (character == '>') {
      result += "&gt;";
    } else {
      result += character;
    }
  }
  return result;
}

std::string plistEntries(std::string_view indentation, std::span<const WantedValue> values) {
  std::string result;
  for (const WantedValue& each : values) {
    result.append(indentation).append("<key>").append(each.setting.key).append("</key>");
    result += plistValue(each) + '\n';
  }
  return result;
}

}  // namespace tarnwell::profile
