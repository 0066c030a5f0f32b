#include "profile/exports/Formats.h"
#include "profile/values/Name.h"

namespace tarnwell::profile {
namespace {

/// Lines between the brackets, a comma behind each but the last.
std::string enclosed(char opening, const std::vector<std::string>& lines, char closing) {
  std::string result(1, opening);
  for (const std::string& line : lines) {
    result += (&line == &lines.front() ? "\n    " : ",\n    ") + line;
  }
  return result + (lines.empty() ? "" : "\n  ") + closing;
}

}  // namespace

system::Result<Export> json(const Profile& profile, const ExportOptions&) {
  std::vector<std::string> unset = unsetKeysOf(profile);
  for (std::string& key : unset) {
    key = stringLiteral(key);
  }
  std::vector<std::string> dock;
  for (const auto& [setting, value] : valuesOf(profile)) {
    dock.push_back(stringLiteral(setting.key) + ": " +
                   (setting.type == Type::effect ? stringLiteral(text(value)) : text(value)));
  }
  return Export{"{\n  \"profile\": 1,\n  \"name\": " + stringLiteral(profile.name) + ",\n  \"unset\": " +
                enclosed('[', unset, ']') + ",\n  \"dock\": " + enclosed('{', dock, '}') + "\n}\n"};
}

}  // namespace tarnwell::profile
