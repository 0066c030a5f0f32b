#include "profile/exports/Formats.h"
#include "profile/exports/Notes.h"
#include "profile/exports/plist/PlistText.h"

namespace tarnwell::profile {

system::Result<Export> propertyList(const Profile& profile, const ExportOptions&) {
  const std::vector<std::string> warnings = unsaidUnset("a property list", profile);
  return Export{std::string(plistHead) + "<!-- defaults import com.apple.dock FILE && killall Dock -->\n" +
                    comments("<!-- ", warnings, ". -->\n") + "<dict>\n" + plistEntries("  ", valuesOf(profile)) +
                    "</dict>\n</plist>\n",
                warnings};
}

}  // namespace tarnwell::profile
