#include "profile/toml/ProfileWriter.h"

#include "profile/values/Name.h"

namespace tarnwell::profile {
namespace {

std::string valueText(const WantedValue& each) {
  return each.setting.type == Type::effect ? stringLiteral(text(each.value)) : text(each.value);
}

}  // namespace

std::string profileText(const Profile& profile) {
  std::string result = "profile = 1\n";
  if (!profile.name.empty()) {
    result += "name = " + stringLiteral(profile.name) + '\n';
  }
  std::string unset;
  for (const std::string& key : unsetKeysOf(profile)) {
    unset += (unset.empty() ? "" : ", ") + stringLiteral(key);
  }
  if (!unset.empty()) {
    result += "unset = [" + unset + "]\n";
  }
  result += "\n[dock]\n";
  for (const WantedValue& each : valuesOf(profile)) {
    result += std::string(each.setting.key) + " = " + valueText(each) + '\n';
  }
  return result;
}

}  // namespace tarnwell::profile
