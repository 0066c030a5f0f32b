#include "profile/values/Wish.h"

#include "core/DecimalText.h"
#include "core/ValueText.h"
#include "profile/values/Name.h"

namespace tarnwell::profile {
namespace {

std::string numberText(double value) {
  const std::string text = core::plainDecimalText(value);
  return text.ends_with(".0") ? text.substr(0, text.size() - 2) : text;
}

/// What `defaults read` prints of a value.
struct PrintedText {
  std::string operator()(const core::Absent&) const { return {}; }
  std::string operator()(double value) const { return numberText(value); }
  std::string operator()(bool value) const { return value ? "1" : "0"; }
  std::string operator()(const std::string& value) const { return value; }
  std::string operator()(const core::OtherValue& value) const { return value.text; }
};

std::optional<Wish> secondsIn(const Setting& setting, const std::string& text) {
  const auto number = core::parseNumber(text);
  const auto wish = number ? secondsWish(setting, *number) : system::Failure();
  return wish ? std::optional(*wish) : std::nullopt;
}

std::optional<Wish> booleanIn(const std::string& text) {
  return text == "0" || text == "1" ? std::optional<Wish>(core::parseBool(text)) : std::nullopt;
}

std::optional<Wish> effectIn(const std::string& text) {
  const auto effect = core::parseMinEffect(text);
  return effect ? std::optional<Wish>(*effect) : std::nullopt;
}

}  // namespace

system::Result<Wish> secondsWish(const Setting& setting, double seconds) {
  return secondsWish(setting, seconds, numberText(seconds));
}

system::Result<Wish> secondsWish(const Setting& setting, double seconds, std::string_view said) {
  if (!(seconds >= 0 && seconds <= mostSeconds)) {
    return system::Failure{std::string(setting.key) + " is between 0 and " + std::to_string(mostSeconds) +
                           " seconds, not " + std::string(said)};
  }
  return Wish(core::roundedDecimal(seconds));
}

system::Result<Wish> effectWish(const Setting& setting, std::string_view word) {
  const auto effect = core::parseMinEffect(word);
  if (!effect || core::text(*effect) != word) {
    return system::Failure{std::string(setting.key) + " is genie, scale or suck, not " + inQuotes(word)};
  }
  return Wish(*effect);
}

std::string text(const Wish& wish) {
  struct Text {
    std::string operator()(Unset) const { return "not set"; }
    std::string operator()(float value) const { return core::roundedDecimalText(value); }
    std::string operator()(bool value) const { return std::string(core::boolText(value)); }
    std::string operator()(core::MinEffect value) const { return std::string(core::text(value)); }
  };
  return std::visit(Text(), wish);
}

bool isFulfilled(const Wish& wish, const core::StoredValue& stored) {
  struct Fulfilment {
    bool operator()(Unset) const { return std::holds_alternative<core::Absent>(there); }
    bool operator()(float value) const {
      const auto* number = std::get_if<double>(&there);
      return number != nullptr && core::roundedDecimal(*number) == value;
    }
    bool operator()(bool value) const { return there == core::StoredValue(value); }
    bool operator()(core::MinEffect value) const { return there == core::StoredValue(std::string(core::text(value))); }

    const core::StoredValue& there;
  };
  return std::visit(Fulfilment{stored}, wish);
}

std::optional<Wish> meaningOf(const Setting& setting, const core::StoredValue& stored) {
  const std::string text = std::visit(PrintedText(), stored);
  switch (setting.type) {
    case Type::seconds:
      return secondsIn(setting, text);
    case Type::boolean:
      return booleanIn(text);
    case Type::effect:
      return effectIn(text);
  }
  return std::nullopt;
}

}  // namespace tarnwell::profile
