#include "installation/WindowStart.h"

namespace tarnwell::installation {

system::Result<WindowStart> windowStart(const std::filesystem::path& front, const std::string& /*program*/,
                                        const std::vector<std::string>& /*words*/) {
  const auto contents = front.parent_path().parent_path();
  const auto application = contents.parent_path();
  if (contents.filename() != "Contents" || application.extension() != ".app") {
    return system::Failure{"The window is not installed; " + front.string() + " lies in no application."};
  }
  return WindowStart{.program = "/usr/bin/open", .words = {"open", application.string()}};
}

}  // namespace tarnwell::installation
