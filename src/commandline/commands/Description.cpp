#include "commandline/commands/Description.h"

#include <variant>

#include "core/DecimalText.h"
#include "core/ValueText.h"

namespace tarnwell::commandline {
namespace {

struct StoredType {
  std::string operator()(const core::Absent&) const { return {}; }
  std::string operator()(double) const { return "float"; }
  std::string operator()(bool) const { return "boolean"; }
  std::string operator()(const std::string&) const { return "string"; }
  std::string operator()(const core::OtherValue& value) const { return value.type; }
};

struct PlainText {
  std::string operator()(const core::Absent&) const { return {}; }
  std::string operator()(double value) const { return core::plainDecimalText(value); }
  std::string operator()(bool value) const { return value ? "true" : "false"; }
  std::string operator()(const std::string& value) const { return value; }
  std::string operator()(const core::OtherValue& value) const { return value.text; }
};

bool isThere(const core::StoredValue& value) { return !std::holds_alternative<core::Absent>(value); }

std::string plainTextOf(const core::StoredValue& stored) { return std::visit(PlainText(), stored); }

bool isNumber(const core::StoredValue& stored) { return core::parseNumber(plainTextOf(stored)).has_value(); }

/// What a value is that says nothing of such a setting.
std::string_view wrongText(profile::Type type, const core::StoredValue& stored) {
  switch (type) {
    case profile::Type::seconds:
      return isNumber(stored) ? "out of range" : "not a number";
    case profile::Type::boolean:
      return "neither true nor false";
    case profile::Type::effect:
      return "no effect";
  }
  return "";
}

/// Whether a value that says nothing of such a setting could say something, were it another of its kind.
bool isOfTheKind(profile::Type type, const core::StoredValue& stored) {
  return type == profile::Type::seconds ? isNumber(stored) : storedType(stored) == typeName(type);
}

std::string remarkOn(const profile::Setting& setting, const std::optional<profile::Wish>& value,
                     const core::StoredValue& stored) {
  const std::string type = "   stored as " + storedType(stored);
  if (!value) {
    const bool isKind = isOfTheKind(setting.type, stored);
    return std::string(isKind ? wrongText(setting.type, stored) : word(Description::State::wrongType)) + type;
  }
  if (profile::isFulfilled(*value, stored)) {
    return {};
  }
  return storedType(stored) == typeName(setting.type) ? type + " " + plainTextOf(stored) : type;
}

}  // namespace

Description descriptionOf(const Session& session, std::size_t setting, const core::StoredValue& stored,
                          const core::StoredValue& forced) {
  using State = Description::State;
  if (!session.knows(setting)) {
    return {.state = State::unsupported};
  }
  const core::StoredValue& effective = isThere(forced) ? forced : stored;
  if (!isThere(effective)) {
    return {};
  }
  const profile::Setting& row = profile::settings.at(setting);
  const auto value = profile::meaningOf(row, effective);
  const State wrong = isOfTheKind(row.type, effective) ? State::wrongValue : State::wrongType;
  return {.state = isThere(forced) ? State::forced
                   : value         ? State::set
                                   : wrong,
          .value = value,
          .stored = storedType(effective),
          .remark = remarkOn(row, value, effective)};
}

std::string_view word(Description::State state) {
  switch (state) {
    case Description::State::set:
      return "set";
    case Description::State::unset:
      return "unset";
    case Description::State::forced:
      return "forced";
    case Description::State::wrongType:
      return "wrong-type";
    case Description::State::wrongValue:
      return "wrong-value";
    case Description::State::unsupported:
      return "unsupported";
  }
  return "";
}

std::string_view typeName(profile::Type type) {
  switch (type) {
    case profile::Type::seconds:
      return "float";
    case profile::Type::boolean:
      return "boolean";
    case profile::Type::effect:
      return "string";
  }
  return "";
}

std::string storedType(const core::StoredValue& stored) { return std::visit(StoredType(), stored); }

std::string shortText(std::size_t setting, const core::StoredValue& stored) {
  if (!isThere(stored)) {
    return profile::text(profile::Unset());
  }
  const profile::Setting& row = profile::settings.at(setting);
  const auto value = profile::meaningOf(row, stored);
  if (!value) {
    return std::string(wrongText(row.type, stored));
  }
  return profile::isFulfilled(*value, stored) ? profile::text(*value) : storedType(stored) + " " + plainTextOf(stored);
}

}  // namespace tarnwell::commandline
