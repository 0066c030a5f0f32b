#include "commandline/dock/UndoText.h"

#include <nlohmann/json.hpp>

#include "commandline/dock/Element.h"
#include "commandline/dock/PropertyList.h"
#include "system/base/Utf8.h"

namespace tarnwell::commandline {
namespace {

using Object = nlohmann::ordered_json;

// The first was a profile.
constexpr int undoFormat = 2;

// The system takes words of 128 KiB, and one has all settings.
constexpr std::size_t largestElement = 16384;

std::optional<core::StoredValue> storedIn(const Object& value) {
  if (value.is_null()) {
    return core::Absent();
  }
  return value.is_string() ? storedValueOf(value.get_ref<const std::string&>()) : std::nullopt;
}

std::optional<profile::Before> beforeIn(const Object& values) {
  profile::Before before;
  for (const auto& [key, value] : values.items()) {
    const auto setting = profile::settingNamed(key);
    const auto stored = setting ? storedIn(value) : std::nullopt;
    if (!stored) {
      return std::nullopt;
    }
    before.at(*setting) = *stored;
  }
  return before;
}

/// The member of an object, or null.
Object member(const Object& object, const char* key) {
  return object.is_object() ? object.value(key, Object()) : Object();
}

}  // namespace

bool canBeKept(const core::StoredValue& value) {
  const std::string element = elementOf(value);
  return std::holds_alternative<core::Absent>(value) ||
         (element.size() <= largestElement && system::isUtf8(element) && storedValueOf(element));
}

std::string undoText(const profile::Before& before) {
  Object values = Object::object();
  for (std::size_t setting = 0; setting < before.size(); ++setting) {
    if (const auto& stored = before.at(setting)) {
      const std::string element = elementOf(*stored);
      values[std::string(profile::settings.at(setting).key)] = element.empty() ? Object() : Object(element);
    }
  }
  return Object({{"format", undoFormat}, {"before", std::move(values)}}).dump() + "\n";
}

system::Result<profile::Before> readUndo(std::string_view text, const std::string& file) {
  const Object object = Object::parse(text, nullptr, false);
  const Object format = member(object, "format");
  if (format.is_number_integer() && format != undoFormat) {
    return system::Failure{file + " is of format " + format.dump() + "; this program reads " +
                           std::to_string(undoFormat)};
  }
  const Object values = member(object, "before");
  const auto before = format == undoFormat && values.is_object() ? beforeIn(values) : std::nullopt;
  return before ? system::Result<profile::Before>(*before)
                : system::Failure{file + " is damaged: it tells no change that could be taken back"};
}

}  // namespace tarnwell::commandline
