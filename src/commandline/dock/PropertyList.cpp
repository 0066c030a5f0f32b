#include "commandline/dock/PropertyList.h"

#include "commandline/dock/Dictionary.h"
#include "commandline/dock/Element.h"
#include "profile/values/Setting.h"

namespace tarnwell::commandline {

system::Result<core::StoredValues> storedValuesIn(std::string_view xml) {
  const auto dictionary = Dictionary::read(xml);
  if (!dictionary) {
    return system::Failure{"what defaults exports is no property list"};
  }
  core::StoredValues values;
  for (std::size_t setting = 0; setting < values.size(); ++setting) {
    values.at(setting) = dictionary->value(std::string(profile::settings.at(setting).key));
  }
  return values;
}

std::optional<core::StoredValue> storedValueOf(std::string_view element) {
  const auto dictionary =
      Dictionary::read(std::string(R"(<?xml version="1.0"?><plist version="1.0"><dict><key>value</key>)")
                           .append(element)
                           .append("</dict></plist>"));
  auto value = dictionary ? dictionary->value("value") : core::Absent();
  return !element.empty() && elementOf(value) == element ? std::optional(std::move(value)) : std::nullopt;
}

}  // namespace tarnwell::commandline
