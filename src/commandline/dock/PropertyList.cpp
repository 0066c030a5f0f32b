#include "commandline/dock/PropertyList.h"

#include "commandline/dock/Dictionary.h"
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

}  // namespace tarnwell::commandline
