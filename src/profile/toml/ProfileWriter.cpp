#include "profile/toml/ProfileWriter.h"

#include <variant>

namespace tarnwell::profile {
namespace {

// Names and keys have no character that takes another escape.
std::string stringText(std::string_view text) {
  std::string result = "\"";
  for (const char character : text) {
    if (character == '"' || character == '\\') {
      result += '\\';
    }
    result += character;
  }
  return result + '"';
}

std::string valueText(const Wish& wish) {
  return std::holds_alternative<core::MinEffect>(wish) ? stringText(text(wish)) : text(wish);
}

}  // namespace

std::string profileText(const Profile& profile) {
  std::string unset;
  std::string values;
  for (std::size_t index = 0; index < settings.size(); ++index) {
    const auto& wish = profile.wishes.at(index);
    const std::string key(settings.at(index).key);
    if (!wish) {
      continue;
    }
    if (std::holds_alternative<Unset>(*wish)) {
      unset += (unset.empty() ? "" : ", ") + stringText(key);
    } else {
      values += key + " = " + valueText(*wish) + '\n';
    }
  }
  std::string result = "profile = 1\n";
  if (!profile.name.empty()) {
    result += "name = " + stringText(profile.name) + '\n';
  }
  if (!unset.empty()) {
    result += "unset = [" + unset + "]\n";
  }
  return result + "\n[dock]\n" + values;
}

}  // namespace tarnwell::profile
