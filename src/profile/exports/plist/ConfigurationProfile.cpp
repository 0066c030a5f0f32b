#include "profile/exports/Formats.h"
#include "profile/exports/Notes.h"
#include "profile/exports/plist/Identifier.h"
#include "profile/exports/plist/PlistText.h"

namespace tarnwell::profile {
namespace {

/// What this means where it is forced is another thing: that the profile's own list of items is shown.
constexpr std::string_view otherMeaning = "static-only";

/// The only one of the others that Apple documents for configuration profiles.
constexpr std::string_view documented = "mineffect";

struct Payload {
  std::string_view indentation;
  std::string name;
  std::string identifier;
  std::string_view type;
};

std::string payloadKeys(const Payload& payload) {
  const auto line = [&](std::string_view key, const std::string& value) {
    return std::string(payload.indentation).append("<key>Payload").append(key).append("</key>") + value + '\n';
  };
  const auto string = [](std::string_view value) { return "<string>" + xmlText(value) + "</string>"; };
  return line("DisplayName", string(payload.name)) + line("Identifier", string(payload.identifier)) +
         line("Type", string(payload.type)) + line("UUID", string(uuidOf(payload.identifier))) +
         line("Version", "<integer>1</integer>");
}

std::string payloadOf(const std::string& entries, const std::string& identifier) {
  return R"(  <key>PayloadContent</key>
  <array><dict>
    <key>PayloadContent</key>
    <dict><key>com.apple.dock</key><dict><key>Forced</key><array><dict>
      <key>mcx_preference_settings</key>
      <dict>
)" + entries +
         "      </dict>\n    </dict></array></dict></dict>\n" +
         payloadKeys({"    ", "Dock", identifier + ".settings", "com.apple.ManagedClient.preferences"}) +
         "  </dict></array>\n";
}

/// What Apple says nothing of.
std::vector<std::string> undocumented(const std::vector<WantedValue>& values) {
  std::vector<std::string> lines;
  for (const WantedValue& each : values) {
    if (each.setting.key != documented) {
      lines.push_back(std::string(each.setting.key) + " is not listed by Apple for configuration profiles");
    }
  }
  return lines;
}

}  // namespace

system::Result<Export> configurationProfile(const Profile& profile, const ExportOptions& options) {
  if (!isIdentifier(options.identifier)) {
    return system::Failure{
        "a configuration profile needs an identifier, such as --identifier org.example.dock: it decides which one "
        "replaces which"};
  }
  auto values = valuesOf(profile);
  std::vector<std::string> warnings = unsaidUnset("a configuration profile", profile);
  if (std::erase_if(values, [](const WantedValue& each) { return each.setting.key == otherMeaning; }) > 0) {
    warnings.push_back(std::string(otherMeaning) +
                       " is left out: in a configuration profile it means that the Dock shows the profile's own items");
  }
  return Export{
      std::string(plistHead) + comments("<!-- ", warnings, ". -->\n") +
          comments("<!-- ", undocumented(values), ". -->\n") + "<dict>\n" +
          payloadOf(plistEntries("        ", values), options.identifier) +
          payloadKeys({"  ", profile.name.empty() ? "Dock" : profile.name, options.identifier, "Configuration"}) +
          "  <key>PayloadScope</key><string>User</string>\n</dict>\n</plist>\n",
      warnings};
}

}  // namespace tarnwell::profile
