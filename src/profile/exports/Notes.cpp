#include "profile/exports/Notes.h"

namespace tarnwell::profile {

std::string headComment(std::string_view what, const Profile& profile) {
  std::string head = "# " + std::string(what) + '\n';
  return profile.name.empty() ? head : head + "# Profile: " + profile.name + '\n';
}

std::vector<std::string> unsaidUnset(std::string_view target, const Profile& profile) {
  std::vector<std::string> lines = unsetKeysOf(profile);
  for (std::string& line : lines) {
    line += " is left alone: " + std::string(target) + " cannot say that it shall not be set";
  }
  return lines;
}

std::string comments(std::string_view before, const std::vector<std::string>& lines, std::string_view behind) {
  std::string result;
  for (const std::string& line : lines) {
    result.append(before).append(line).append(behind);
  }
  return result;
}

}  // namespace tarnwell::profile
