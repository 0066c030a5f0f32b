#include "installation/Programs.h"
#include "installation/WindowStart.h"

namespace tarnwell::installation {

system::Result<WindowStart> windowStart(const std::filesystem::path& front, const std::string& program,
                                        const std::vector<std::string>& words) {
  const auto window = libexecProgram(front.parent_path(), program, program + "-window");
  if (!window) {
    return system::Failure{"The window is not installed; its package is " + program + "."};
  }
  return WindowStart{.program = *window, .words = words};
}

}  // namespace tarnwell::installation
