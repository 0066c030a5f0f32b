#include "commandline/commands/Json.h"

#include <nlohmann/json.hpp>

#include "commandline/commands/Explanation.h"
#include "core/DecimalText.h"
#include "core/ValueText.h"

namespace tarnwell::commandline {
namespace {

using Object = nlohmann::ordered_json;

constexpr int format = 1;

// The number that the text says; as it is, 32 bits of it would be written with all their digits.
double asWritten(float value) { return core::parseFloat(core::roundedDecimalText(value)); }

Object valueOf(const profile::Wish& wish) {
  struct Value {
    Object operator()(profile::Unset) const { return nullptr; }
    Object operator()(float value) const { return asWritten(value); }
    Object operator()(bool value) const { return value; }
    Object operator()(core::MinEffect value) const { return core::text(value); }
  };
  return std::visit(Value(), wish);
}

std::string versionText(const std::array<int, 3>& version) {
  return std::to_string(version[0]) + "." + std::to_string(version[1]) + "." + std::to_string(version[2]);
}

Object objectOf(std::size_t setting, const Description& description) {
  const profile::Setting& row = profile::settings.at(setting);
  Object object = {{"key", row.key}, {"type", typeName(row.type)}, {"state", word(description.state)}};
  if (description.value) {
    object["value"] = valueOf(*description.value);
  }
  if (!description.stored.empty()) {
    object["stored"] = description.stored;
  }
  return object;
}

// Of a profile, which wants no other values.
Object rowOf(const profile::Change& change) {
  const auto from = profile::meaningOf(profile::settings.at(change.setting), change.from);
  Object row = {{"key", profile::settings.at(change.setting).key},
                {"from", from ? valueOf(*from) : nullptr},
                {"to", valueOf(std::get<profile::Wish>(change.to))}};
  if (const std::string stored = storedType(change.from); !stored.empty()) {
    row["stored"] = stored;
  }
  return row;
}

Object rowOf(const profile::WishChange& change) {
  Object row = {{"key", profile::settings.at(change.setting).key}};
  if (change.from) {
    row["from"] = valueOf(*change.from);
  }
  if (change.to) {
    row["to"] = valueOf(*change.to);
  }
  return row;
}

template <class Changes>
std::string textOf(const Changes& changes) {
  Object rows = Object::array();
  for (const auto& change : changes) {
    rows.push_back(rowOf(change));
  }
  return Object({{"format", format}, {"differences", std::move(rows)}}).dump();
}

Object values(profile::Type type) {
  switch (type) {
    case profile::Type::seconds:
      return {{"least", 0.0}, {"most", static_cast<double>(profile::mostSeconds)}};
    case profile::Type::boolean:
      return {{"values", {true, false}}};
    case profile::Type::effect:
      return {{"values", {"genie", "scale", "suck"}}};
  }
  return nullptr;
}

Object explanationOf(std::size_t setting) {
  const profile::Setting& row = profile::settings.at(setting);
  const Explanation& known = explanations.at(setting);
  Object object = {{"key", row.key}, {"type", typeName(row.type)}};
  object.update(values(row.type));
  object["summary"] = known.summary;
  object["conditions"] = known.conditions;
  object["whenNotSet"] = known.ownValue;
  object["systems"] = systemsText(row.gate);
  object["window"] = known.windowLabel;
  return object;
}

}  // namespace

std::string differencesJson(std::span<const profile::Change> changes) { return textOf(changes); }

std::string differencesJson(std::span<const profile::WishChange> changes) { return textOf(changes); }

std::string explanationsJson(std::span<const std::size_t> settings) {
  Object rows = Object::array();
  for (const std::size_t setting : settings) {
    rows.push_back(explanationOf(setting));
  }
  return Object({{"format", format}, {"settings", std::move(rows)}}).dump();
}

std::string listJson(const Session& session, std::span<const Description> descriptions) {
  Object rows = Object::array();
  for (std::size_t setting = 0; setting < descriptions.size(); ++setting) {
    rows.push_back(objectOf(setting, descriptions[setting]));
  }
  const Object object = {{"format", format}, {"system", versionText(session.system)}, {"settings", std::move(rows)}};
  return object.dump();
}

}  // namespace tarnwell::commandline
