#include "profile/toml/ProfileReader.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "profile/toml/TomlParser.h"
#include "profile/values/Name.h"
#include "profile/values/Suggestion.h"

namespace tarnwell::profile {
namespace {

using Position = toml::source_position;

constexpr std::int64_t readFormat = 1;

/// The longest line. With it, how deep keys go is limited, whose parts the library goes through by recursion.
constexpr std::size_t longestLine = 500;

std::string typeName(const toml::node& node) {
  switch (node.type()) {
    case toml::node_type::table:
      return "a table";
    case toml::node_type::array:
      return "a list";
    case toml::node_type::string:
      return "a string";
    case toml::node_type::integer:
      return "a number";
    case toml::node_type::floating_point:
      return "a decimal number";
    case toml::node_type::boolean:
      return node.ref<bool>() ? "true" : "false";
    default:
      return "a date or a time";
  }
}

std::string unknownKey(std::string_view key) {
  std::array<std::string_view, settings.size()> keys;
  std::ranges::transform(settings, keys.begin(), &Setting::key);
  return inQuotes(key) + " is not a setting that is known" + suggestion(key, keys, "");
}

/// What is wrong with a value's type.
std::string typeError(const Setting& setting, const toml::node& node) {
  constexpr std::array<std::string_view, 3> expected = {"a number of seconds", "true or false",
                                                        R"("genie", "scale" or "suck")"};
  return std::string(setting.key) + " is " + std::string(expected.at(static_cast<std::size_t>(setting.type))) +
         ", not " + typeName(node);
}

system::Result<Wish> wishIn(const Setting& setting, const toml::node& node) {
  if (setting.type == Type::seconds && node.is_number()) {
    return secondsWish(setting, *node.value<double>());
  }
  if (setting.type == Type::boolean && node.is_boolean()) {
    return Wish(node.ref<bool>());
  }
  if (setting.type == Type::effect && node.is_string()) {
    return effectWish(setting, node.ref<std::string>());
  }
  return system::Failure{typeError(setting, node)};
}

/// Goes through a text that is TOML, and keeps the profile and the first that is wrong in the text.
class Reading {
 public:
  explicit Reading(const toml::table& root) {
    readFormatOf(root);
    // Of another format nothing else is known.
    if (error_.empty()) {
      for (const auto& [key, node] : root) {
        readTopLevel(key, node);
      }
    }
  }

  bool succeeded() const { return error_.empty(); }
  Position position() const { return position_; }
  const std::string& error() const { return error_; }
  const Profile& profile() const { return profile_; }

 private:
  void complain(Position position, const std::string& error) {
    if (error_.empty() || position < position_) {
      position_ = position;
      error_ = error;
    }
  }

  void readFormatOf(const toml::table& root) {
    const toml::node* format = root.get("profile");
    if (format == nullptr) {
      complain({1, 1}, "\"profile = 1\" is missing, which says that this is a profile, and of which format");
    } else if (!format->is_integer()) {
      complain(format->source().begin, "profile is the number of the format, not " + typeName(*format));
    } else if (const auto number = format->ref<std::int64_t>(); number != readFormat) {
      complain(format->source().begin, "the profile is of format " + std::to_string(number) + "; this program reads 1");
    }
  }

  void readTopLevel(const toml::key& key, const toml::node& node) {
    if (key == "name") {
      readName(node);
    } else if (key == "unset") {
      readUnset(node);
    } else if (key == "dock") {
      readDock(node);
    } else if (key != "profile") {
      complain(key.source().begin,
               inQuotes(key.str()) + " is not known; a profile has profile, name, unset and [dock]");
    }
  }

  void readName(const toml::node& node) {
    const auto* name = node.as_string();
    if (name == nullptr) {
      complain(node.source().begin, "name is a string, not " + typeName(node));
    } else if (!isProfileName(name->get())) {
      complain(node.source().begin, "name is one line of up to 60 visible characters");
    } else {
      profile_.name = name->get();
    }
  }

  void readUnset(const toml::node& node) {
    const auto* keys = node.as_array();
    if (keys == nullptr) {
      complain(node.source().begin, "unset is a list of keys, not " + typeName(node));
      return;
    }
    for (const toml::node& each : *keys) {
      if (const auto* key = each.as_string()) {
        unset(key->get(), each.source().begin);
      } else {
        complain(each.source().begin, "unset is a list of keys, which are strings, not " + typeName(each));
      }
    }
  }

  // After the values, since tables are gone through in the order of the alphabet.
  void unset(std::string_view key, Position where) {
    const auto index = settingFor(key, where);
    if (!index) {
      return;
    }
    auto& wish = profile_.wishes.at(*index);
    if (wish) {
      const bool isUnset = std::holds_alternative<Unset>(*wish);
      complain(where, std::string(key) + (isUnset ? " is in unset twice" : " is in unset and has a value"));
    }
    wish = Unset();
  }

  void readDock(const toml::node& node) {
    const auto* values = node.as_table();
    if (values == nullptr) {
      complain(node.source().begin, "dock is a table of keys and values, not " + typeName(node));
      return;
    }
    for (const auto& each : *values) {
      if (const auto index = settingFor(each.first.str(), each.first.source().begin)) {
        readValue(*index, each.second);
      }
    }
  }

  void readValue(std::size_t index, const toml::node& node) {
    const auto wish = wishIn(settings.at(index), node);
    if (wish) {
      profile_.wishes.at(index) = *wish;
    } else {
      complain(node.source().begin, wish.error().message);
    }
  }

  std::optional<std::size_t> settingFor(std::string_view key, Position where) {
    const auto index = settingNamed(key);
    if (!index) {
      complain(where, unknownKey(key));
    }
    return index;
  }

  Profile profile_;
  Position position_;
  std::string error_;
};

system::Failure failureAt(std::string_view file, Position position, const std::string& error) {
  return {std::string(file) + ':' + std::to_string(position.line) + ':' + std::to_string(position.column) + ": " +
          error};
}

/// What is wrong with the text's size, as far as anything is.
std::optional<std::pair<Position, std::string>> sizeError(std::string_view text) {
  if (text.size() > largestProfile) {
    return {{{1, 1}, "a profile has 65536 bytes at most"}};
  }
  toml::source_index line = 1;
  for (std::size_t begin = 0; begin < text.size(); ++line) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    if (end - begin > longestLine) {
      return {{{line, longestLine + 1}, "a line of a profile has 500 bytes at most"}};
    }
    begin = end + 1;
  }
  return std::nullopt;
}

/// What the library says is wrong, without what it was doing.
std::string syntaxError(std::string_view description) {
  constexpr std::string_view activity = "Error while parsing ";
  const std::size_t colon = description.starts_with(activity) ? description.find(": ") : std::string_view::npos;
  return visible(colon == std::string_view::npos ? description : description.substr(colon + 2));
}

}  // namespace

system::Result<Profile> readProfile(std::string_view text, std::string_view file) {
  // Other formats that profiles are exported in, which no TOML begins like.
  if (text.starts_with('{') || text.starts_with('<')) {
    return failureAt(file, {1, 1}, "a profile is TOML; what is written for other tools is not read");
  }
  if (const auto error = sizeError(text)) {
    return failureAt(file, error->first, error->second);
  }
  const toml::parse_result parsed = toml::parse(text);
  if (!parsed) {
    return failureAt(file, parsed.error().source().begin, syntaxError(parsed.error().description()));
  }
  const Reading reading(parsed.table());
  return reading.succeeded() ? system::Result<Profile>(reading.profile())
                             : failureAt(file, reading.position(), reading.error());
}

}  // namespace tarnwell::profile
